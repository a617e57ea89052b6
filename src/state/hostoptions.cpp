// SPDX-License-Identifier: MIT
#include "state/hostoptions.h"

#include "base/sharedinstance.h"

namespace tolvane {

const std::shared_ptr<HostOptions> &HostOptions::shared()
{
    return sharedInstance<HostOptions>();
}

std::optional<Tolvane::Presentation> HostOptions::presentationOf(const QObject *window) const
{
    const auto found = m_windows.constFind(window);
    return found == m_windows.cend() ? std::nullopt : std::optional(*found);
}

void HostOptions::setPresentation(Tolvane::Presentation presentation, QObject &window)
{
    if (!m_windows.contains(&window))
        connect(&window, &QObject::destroyed, this, [this, &window] { m_windows.remove(&window); });
    m_windows.insert(&window, presentation);
    Q_EMIT changed();
}

} // namespace tolvane
