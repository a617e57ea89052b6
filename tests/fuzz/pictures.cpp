// SPDX-License-Identifier: MIT
// Untrusted pictures: the claimed size bounds the decoded size.
#include "targets.h"
#include "ui/images/decoding.h"

namespace tolvane::fuzz {

namespace {

qint64 pixels(const QSize &size)
{
    return qint64(size.width()) * size.height();
}

bool isReady(const QImage &image)
{
    return image.format() == QImage::Format_RGB32 ||
           image.format() == QImage::Format_ARGB32_Premultiplied;
}

} // namespace

void pictures(Input input)
{
    const QSize target(1 + input.byte(), 1 + input.byte());
    const QByteArray bytes = input.rest();
    const QSize claimed = images::declaredSize(bytes);
    require(!images::isCheapToDecode(bytes) || pixels(claimed) <= images::maximumCheapPixels,
            "a picture that is cheap to decode is small");

    const QImage image = images::decoded(bytes);
    require(image.isNull() || (isReady(image) && pixels(image.size()) <= images::maximumPixels),
            "a decoded picture is bounded and ready to draw");
    require(pixels(image.size()) <= pixels(claimed),
            "a decoded picture is no larger than it claims");
    require(images::decoded(bytes) == image, "the same bytes give the same picture");

    const QImage small = images::decodedThumbnail(bytes, target);
    require(small.isNull() || isReady(small), "a thumbnail is ready to draw");
    require(pixels(small.size()) <= std::max(pixels(image.size()), 4 * pixels(target) + 1024),
            "a thumbnail is no larger than necessary");
    const QImage scaled = images::thumbnail(image, target);
    require(scaled.width() <= image.width() && scaled.height() <= image.height(),
            "nothing is scaled up");
}

} // namespace tolvane::fuzz
