// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/tolvane.h>

#include <QtCore/QHash>
#include <QtCore/QObject>

#include <memory>
#include <optional>
#include <utility>

namespace tolvane {

/// The host's options for the messenger's views. Main thread.
class TOLVANE_PRIVATE_EXPORT HostOptions final : public QObject
{
    Q_OBJECT

public:
    static const std::shared_ptr<HostOptions> &shared();

    /// In windows that have no presentation of their own.
    Tolvane::Presentation presentation() const { return m_presentation; }
    void setPresentation(Tolvane::Presentation presentation) { set(m_presentation, presentation); }
    /// The window's own presentation; absent if it has none.
    std::optional<Tolvane::Presentation> presentationOf(const QObject *window) const;
    /// @param window a QWindow or a QWidget
    void setPresentation(Tolvane::Presentation presentation, QObject &window);

    Tolvane::PanelSide panelSide() const { return m_panelSide; }
    void setPanelSide(Tolvane::PanelSide side) { set(m_panelSide, side); }

    /// Whether the customer may attach a picture of the host's window.
    bool isScreenshotEnabled() const { return m_isScreenshotEnabled; }
    void setScreenshotEnabled(bool enabled) { set(m_isScreenshotEnabled, enabled); }

    /// Whether Enter on a hardware keyboard sends the message.
    bool enterSends() const { return m_enterSends; }
    void setEnterSends(bool sends) { set(m_enterSends, sends); }

Q_SIGNALS:
    void changed();

private:
    template <typename T>
    void set(T &option, T value)
    {
        if (std::exchange(option, value) != value)
            Q_EMIT changed();
    }

    Tolvane::Presentation m_presentation = Tolvane::Presentation::full;
    QHash<const QObject *, Tolvane::Presentation> m_windows;
    Tolvane::PanelSide m_panelSide = Tolvane::PanelSide::trailing;
    bool m_isScreenshotEnabled = false;
    bool m_enterSends = true;
};

} // namespace tolvane
