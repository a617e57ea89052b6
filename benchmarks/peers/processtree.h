// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>
#include <QtCore/QSet>
#include <QtCore/QString>

namespace tolvane::peers {

/// A process with all its descendants.
class ProcessTree
{
public:
    explicit ProcessTree(qint64 root)
        : m_root(root)
    {
    }

    QList<qint64> processes() const;
    int threads() const;
    /// The proportional memory in MiB: pages of several processes count once.
    double mebibytes() const;
    /// The processor time of the processes that are running, in ms.
    double processorMilliseconds() const;
    /// The files that are mapped into memory.
    QSet<QString> files() const;

private:
    qint64 m_root;
};

} // namespace tolvane::peers
