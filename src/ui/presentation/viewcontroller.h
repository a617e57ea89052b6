// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/presentation/stage.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>

#include <memory>

namespace tolvane {

class ScreenData;

/// Shows the whole messenger in a window, and tells the rest of the library when it is there and
/// when it has gone, whatever made it go: its close button, the window, the application. Owns
/// itself while it is on screen. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT TolvaneViewController final : public QObject
{
    Q_OBJECT

public:
    TolvaneViewController();
    ~TolvaneViewController() override;

    /// Over the window that the customer looks at, if there is one. While the messenger is on
    /// screen it is left as it is.
    static void presentInForeground();

private:
    void presentOver(QWindow &window);
    bool viewDidLoad();
    void viewDidDisappear();
    void closeTapped();

    Stage m_stage;
    QPointer<QQuickItem> m_formerFocus;
    std::unique_ptr<ScreenData> m_data;
    QPointer<QQuickItem> m_view;
    bool m_isOnScreen = false;
};

} // namespace tolvane
