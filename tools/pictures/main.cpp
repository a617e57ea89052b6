// SPDX-License-Identifier: MIT
// tolvane-pictures FOLDER [LOOK [SCREEN]]: saves a screenshot of each screen in each look.
#include "testing/ui/screens.h"

#include <QtCore/QDir>
#include <QtGui/QGuiApplication>

using namespace Qt::StringLiterals;
using tolvane::test::Appearance;
using tolvane::test::Form;
using tolvane::test::Screens;

namespace {

const QList<Appearance> &appearances()
{
    static const QList<Appearance> appearances = {
        {.name = u"phone"_s},
        {.name = u"phone-dark"_s, .isDark = true},
        {.name = u"small"_s, .size = {320, 480}},
        {.name = u"small-german-large"_s, .size = {320, 480}, .language = u"de"_s, .fontScale = 2},
        {.name = u"phone-large"_s, .fontScale = 2},
        {.name = u"phone-arabic"_s, .language = u"ar"_s},
        {.name = u"landscape"_s, .size = {844, 390}},
        {.name = u"landscape-arabic-dark"_s,
         .size = {844, 390},
         .language = u"ar"_s,
         .isDark = true},
        {.name = u"landscape-german-large"_s,
         .size = {844, 390},
         .language = u"de"_s,
         .fontScale = 2},
        {.name = u"desktop"_s, .size = {1400, 900}},
        {.name = u"panel"_s, .size = {1000, 760}, .form = Form::panel},
        {.name = u"embedded"_s, .size = {1000, 760}, .form = Form::embedded},
        {.name = u"panel-arabic-dark"_s,
         .size = {1000, 760},
         .language = u"ar"_s,
         .isDark = true,
         .form = Form::panel},
        {.name = u"wide-dark"_s, .size = {2560, 1440}, .isDark = true},
    };
    return appearances;
}

bool saveScreenshot(const Appearance &appearance, const Screens::Screen &screen, const QDir &folder)
{
    Screens screens(appearance);
    screens.show(screen);
    const QString file =
        folder.filePath(appearance.name + u'-' + QLatin1String(screen.name) + u".png"_s);
    std::printf("%s\n", qPrintable(file));
    return screens.host.grabWindow().save(file);
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 2 || !QDir().mkpath(arguments.at(1))) {
        std::fprintf(
            stderr, "Usage: tolvane-pictures FOLDER [LOOK [SCREEN]]\n"
                    "LOOK is the whole name of a look, SCREEN the beginning of a screen's name.\n");
        return EXIT_FAILURE;
    }
    bool isDone = true;
    for (const Appearance &appearance : appearances()) {
        if (arguments.size() > 2 && appearance.name != arguments.at(2))
            continue;
        for (const Screens::Screen &screen : Screens::all()) {
            if (QLatin1String(screen.name).startsWith(arguments.value(3)))
                isDone = saveScreenshot(appearance, screen, QDir(arguments.at(1))) && isDone;
        }
    }
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
