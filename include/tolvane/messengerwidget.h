// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The messenger as a widget. Hosts link `Tolvane::Widgets`.

#include <tolvane/tolvane.h>

#include <QtWidgets/QWidget>

/// Marks the exported symbols of the library of widgets.
#if defined(TOLVANE_STATIC)
#define TOLVANE_WIDGETS_EXPORT
#elif defined(TOLVANE_BUILDING_WIDGETS)
#define TOLVANE_WIDGETS_EXPORT Q_DECL_EXPORT
#else
#define TOLVANE_WIDGETS_EXPORT Q_DECL_IMPORT
#endif

namespace tolvane {

/// The messenger as a part of the host's interface: in a dock, a tab, a side bar or a dialog.
///
/// @code
/// auto *dock = new QDockWidget(tr("Help"), &window);
/// dock->setWidget(new tolvane::MessengerWidget);
/// window.addDockWidget(Qt::RightDockWidgetArea, dock);
/// @endcode
///
/// The messenger is open while the widget is visible, from Tolvane::initialize() on. It has no
/// close button, and leaves Escape on its home screen to the host. Tolvane::close() empties the
/// widget, Tolvane::open() fills it again. While a widget is visible, the messenger appears nowhere
/// else. Of several visible widgets the first one shows the messenger; a log line reports each of
/// the others. Main thread.
class TOLVANE_WIDGETS_EXPORT MessengerWidget : public QWidget
{
    Q_OBJECT

public:
    /// Creates a widget that shows the messenger once it is visible.
    explicit MessengerWidget(QWidget *parent = nullptr);
    ~MessengerWidget() override;

    /// 400 by 640 pixels.
    QSize sizeHint() const override;
    /// 280 by 360 pixels.
    QSize minimumSizeHint() const override;

protected:
    /// Follows the palette.
    void changeEvent(QEvent *event) override;

private:
    class Private;
    Private *const d;
};

} // namespace tolvane
