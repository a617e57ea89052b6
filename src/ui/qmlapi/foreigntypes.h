// SPDX-License-Identifier: MIT
#pragma once

#include "ui/parallax/parallaxscroll.h"

#include <QtQml/QQmlEngine>

// Registers the types that the views of this module use.

namespace tolvane {

struct ParallaxForeign
{
    Q_GADGET
    QML_FOREIGN(tolvane::ParallaxFactory)
    QML_NAMED_ELEMENT(Parallax)
    QML_SINGLETON
};

struct ParallaxScrollForeign
{
    Q_GADGET
    QML_FOREIGN(tolvane::ParallaxScroll)
    QML_NAMED_ELEMENT(ParallaxScroll)
    QML_UNCREATABLE("ParallaxScrollView creates it.")
};

} // namespace tolvane
