// SPDX-License-Identifier: MIT
#version 440

// Clips an item to a rectangle with rounded corners, which may begin below the item's top.

layout(location = 0) in vec2 qt_TexCoord0;
layout(location = 0) out vec4 color;

layout(binding = 1) uniform sampler2D source;

layout(std140, binding = 0) uniform Block
{
    mat4 qt_Matrix;
    float qt_Opacity;
    float extent;
    float exponent;
    float contentTop;
    vec2 size;
};

void main()
{
    vec2 halfSize = 0.5 * vec2(size.x, size.y - contentTop);
    vec2 fromCenter = qt_TexCoord0 * size - vec2(halfSize.x, contentTop + halfSize.y);
    vec2 fromCorner = abs(fromCenter) - halfSize + extent;
    vec2 part = max(fromCorner, 0.0) / extent;
    float norm = pow(pow(part.x, exponent) + pow(part.y, exponent), 1.0 / exponent);
    float signedDistance = min(max(fromCorner.x, fromCorner.y), 0.0) + (norm - 1.0) * extent;
    // The edge fades over one pixel of the screen.
    float pixel = length(vec2(dFdx(signedDistance), dFdy(signedDistance)));
    float coverage = clamp(0.5 - signedDistance / max(pixel, 1e-6), 0.0, 1.0);
    color = texture(source, qt_TexCoord0) * coverage * qt_Opacity;
}
