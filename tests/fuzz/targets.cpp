// SPDX-License-Identifier: MIT
#include "targets.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>

namespace tolvane::fuzz {

const Target &targetNamed(QByteArrayView name)
{
    for (const Target &target : targets) {
        if (name == target.name)
            return target;
    }
    std::fprintf(stderr, "Unknown target '%.*s'. Targets:", int(name.size()), name.data());
    for (const Target &target : targets)
        std::fprintf(stderr, " %s", target.name);
    std::fprintf(stderr, "\n");
    std::exit(2);
}

void prepare()
{
    static const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    static int argc = 1;
    static char name[] = "tolvane-fuzz";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
}

} // namespace tolvane::fuzz
