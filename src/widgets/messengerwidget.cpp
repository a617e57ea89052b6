// SPDX-License-Identifier: MIT
#include <tolvane/messengerwidget.h>
#include <tolvane/views.h>

#include <QtCore/QEvent>
#include <QtQuick/QQuickItem>
#include <QtQuickWidgets/QQuickWidget>
#include <QtWidgets/QVBoxLayout>

namespace tolvane {

class MessengerWidget::Private final : public QQuickWidget
{
public:
    explicit Private(QWidget *parent)
        : QQuickWidget(parent)
    {
        setResizeMode(SizeRootObjectToView);
        setContent(QUrl(), nullptr, createMessengerItem());
        rootObject()->setFocus(true);
        // The views have menus of their own, and the host's window would open its menu, too.
        setContextMenuPolicy(Qt::PreventContextMenu);
    }
};

MessengerWidget::MessengerWidget(QWidget *parent)
    : QWidget(parent)
    , d(new Private(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(d);
    setFocusProxy(d);
    d->setClearColor(palette().color(QPalette::Window));
}

MessengerWidget::~MessengerWidget() = default;

QSize MessengerWidget::sizeHint() const
{
    return QSize(400, 640);
}

QSize MessengerWidget::minimumSizeHint() const
{
    return QSize(280, 360);
}

void MessengerWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        d->setClearColor(palette().color(QPalette::Window));
}

} // namespace tolvane
