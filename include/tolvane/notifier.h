// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Signals of the library.

#include <tolvane/export.h>

#include <QtCore/QObject>

namespace tolvane {

/// Reports changes of the library's state. Tolvane::notifier() returns the only instance.
///
/// @code
/// QObject::connect(tolvane::Tolvane::notifier(), &tolvane::TolvaneNotifier::unreadCountChanged,
///                  badge, &Badge::setNumber);
/// @endcode
class TOLVANE_EXPORT TolvaneNotifier final : public QObject
{
    Q_OBJECT

public:
    ~TolvaneNotifier() override;

Q_SIGNALS:
    /// The number of conversations with an unread message has changed. Emitted on the main thread.
    /// @param count the value of Tolvane::unreadCount()
    void unreadCountChanged(int count);

private:
    friend class Tolvane;
    TolvaneNotifier();
};

} // namespace tolvane
