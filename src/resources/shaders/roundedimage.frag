#version 440

layout(location = 0) in vec2 texCoord;
layout(location = 1) in vec2 centerOffset;

layout(location = 0) out vec4 color;

layout(std140, binding = 0) uniform Uniforms {
    mat4 matrix;
    vec4 extents; // Of the corners: top left, top right, bottom left, bottom right.
    vec2 halfSize;
    float exponent;
    float opacity;
};

layout(binding = 1) uniform sampler2D picture;

// The distance from a rectangle whose corners are superellipses; negative inside.
float signedDistanceAt(vec2 at)
{
    vec2 leftAndRight = at.y < 0.0 ? extents.xy : extents.zw;
    float extent = at.x < 0.0 ? leftAndRight.x : leftAndRight.y;
    vec2 fromCorner = abs(at) - halfSize + extent;
    vec2 part = max(fromCorner, 0.0) / max(extent, 0.0001);
    float norm = pow(pow(part.x, exponent) + pow(part.y, exponent), 1.0 / exponent);
    return extent > 0.0 ? min(max(fromCorner.x, fromCorner.y), 0.0) + (norm - 1.0) * extent
                        : max(fromCorner.x, fromCorner.y);
}

void main()
{
    float signedDistance = signedDistanceAt(centerOffset);
    // The size of a pixel of the screen, however the item is scaled and rotated.
    float pixel = max(length(vec2(dFdx(signedDistance), dFdy(signedDistance))), 0.0001);
    float coverage = clamp(0.5 - signedDistance / pixel, 0.0, 1.0);
    color = texture(picture, texCoord) * (coverage * opacity);
}
