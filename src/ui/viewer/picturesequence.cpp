// SPDX-License-Identifier: MIT
#include "ui/viewer/picturesequence.h"

namespace tolvane {

void PictureSequence::setAttachments(const QStringList &attachments)
{
    if (m_attachments == attachments)
        return;
    m_attachments = attachments;
    restart();
}

void PictureSequence::setFirst(const QUrl &url)
{
    if (m_first == url)
        return;
    m_first = url;
    restart();
}

void PictureSequence::restart()
{
    m_urls.clear();
    for (const QString &attachment : m_attachments) {
        const QUrl url(attachment, QUrl::StrictMode);
        if (url.isValid())
            m_urls += url;
    }
    if (!m_urls.contains(m_first))
        m_urls = {m_first};
    m_index = int(m_urls.indexOf(m_first));
    Q_EMIT changed();
}

void PictureSequence::step(int by)
{
    if (by == 0 || !canStep(by))
        return;
    m_index += by;
    Q_EMIT changed();
}

} // namespace tolvane
