// SPDX-License-Identifier: MIT
#include "ui/icons/icontextures.h"

#include <map>
#include <mutex>
#include <utility>

namespace tolvane {

namespace {

using Key = std::pair<const QQuickWindow *, qint64>;

/// Every window may have a render thread of its own.
struct Textures
{
    std::mutex mutex;
    std::map<Key, std::weak_ptr<QSGTexture>> byPicture;
};

Textures &textures()
{
    static Textures all;
    return all;
}

} // namespace

std::shared_ptr<QSGTexture> sharedTexture(QQuickWindow &window, const QImage &image)
{
    Textures &all = textures();
    const std::scoped_lock lock(all.mutex);
    std::weak_ptr<QSGTexture> &known = all.byPicture[{&window, image.cacheKey()}];
    if (auto texture = known.lock())
        return texture;
    std::shared_ptr<QSGTexture> texture(window.createTextureFromImage(image));
    known = texture;
    std::erase_if(all.byPicture, [](const auto &each) { return each.second.expired(); });
    return texture;
}

} // namespace tolvane
