// SPDX-License-Identifier: MIT
#pragma once

#include "ui/shapes/roundedshape.h"

#include <QtQuick/QSGMaterial>
#include <QtQuick/QSGTexture>

#include <memory>

namespace tolvane {

/// The material of a texture with rounded corners, antialiased at every scale.
class RoundedMaterial final : public QSGMaterial
{
public:
    RoundedMaterial();

    void setTexture(std::unique_ptr<QSGTexture> texture) { m_texture = std::move(texture); }
    QSGTexture *texture() const { return m_texture.get(); }

    void setShape(const RoundedShape &shape);
    const RoundedShape &shape() const { return m_shape; }

    QSGMaterialType *type() const override;
    QSGMaterialShader *createShader(QSGRendererInterface::RenderMode mode) const override;
    int compare(const QSGMaterial *other) const override;

private:
    std::unique_ptr<QSGTexture> m_texture;
    RoundedShape m_shape;
};

} // namespace tolvane
