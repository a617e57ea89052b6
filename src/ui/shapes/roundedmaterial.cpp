// SPDX-License-Identifier: MIT
#include "ui/shapes/roundedmaterial.h"

#include <QtGui/QMatrix4x4>
#include <QtQuick/QSGMaterialShader>

#include <algorithm>
#include <array>
#include <cstring>

namespace tolvane {

namespace {

/// The uniform block as the shaders declare it (std140).
struct Uniforms
{
    std::array<float, 16> matrix;
    std::array<float, 4> extents;
    std::array<float, 2> halfSize;
    float exponent;
    float opacity;
};

class RoundedShader final : public QSGMaterialShader
{
public:
    RoundedShader()
    {
        setShaderFileName(VertexStage, QStringLiteral(":/tolvane/shaders/roundedimage.vert.qsb"));
        setShaderFileName(FragmentStage, QStringLiteral(":/tolvane/shaders/roundedimage.frag.qsb"));
    }

    bool updateUniformData(RenderState &state, QSGMaterial *material, QSGMaterial *before) override
    {
        QByteArray &buffer = *state.uniformData();
        const auto set = [&buffer](std::size_t offset, const void *value, std::size_t size) {
            std::memcpy(buffer.data() + offset, value, size);
        };
        bool isChanged = false;
        if (state.isMatrixDirty()) {
            const QMatrix4x4 matrix = state.combinedMatrix();
            set(offsetof(Uniforms, matrix), matrix.constData(), sizeof(Uniforms::matrix));
            isChanged = true;
        }
        if (state.isOpacityDirty()) {
            const float opacity = state.opacity();
            set(offsetof(Uniforms, opacity), &opacity, sizeof(opacity));
            isChanged = true;
        }
        if (!before || before->compare(material) != 0) {
            const RoundedShape &shape = static_cast<RoundedMaterial *>(material)->shape();
            std::array<float, 4> extents{};
            float exponent = 2;
            for (std::size_t which = 0; which < extents.size(); ++which) {
                const ContinuousCorner corner = shape.corner(which);
                extents.at(which) = float(corner.extent);
                // All rounded corners have the same exponent.
                if (corner.extent > 0)
                    exponent = float(corner.exponent);
            }
            const std::array halfSize = {float(shape.target.width() / 2),
                                         float(shape.target.height() / 2)};
            set(offsetof(Uniforms, extents), extents.data(), sizeof(extents));
            set(offsetof(Uniforms, exponent), &exponent, sizeof(exponent));
            set(offsetof(Uniforms, halfSize), halfSize.data(), sizeof(halfSize));
            isChanged = true;
        }
        return isChanged;
    }

    void updateSampledImage(RenderState &state, int, QSGTexture **texture, QSGMaterial *material,
                            QSGMaterial *) override
    {
        *texture = static_cast<RoundedMaterial *>(material)->texture();
        (*texture)->commitTextureOperations(state.rhi(), state.resourceUpdateBatch());
    }
};

} // namespace

RoundedMaterial::RoundedMaterial()
{
    setFlag(Blending);
}

void RoundedMaterial::setShape(const RoundedShape &shape)
{
    m_shape = shape;
}

QSGMaterialType *RoundedMaterial::type() const
{
    static QSGMaterialType type;
    return &type;
}

QSGMaterialShader *RoundedMaterial::createShader(QSGRendererInterface::RenderMode) const
{
    return new RoundedShader;
}

int RoundedMaterial::compare(const QSGMaterial *other) const
{
    // Each material has its own texture, so two materials are never equal.
    return this < other ? -1 : this > other ? 1 : 0;
}

} // namespace tolvane
