#version 440

// Draws a picture in a rounded rectangle. Positions relative to the middle are an attribute,
// because the renderer may already have transformed the vertices when it batches several items.

layout(location = 0) in vec4 position;
layout(location = 1) in vec2 pictureCoordinate;
layout(location = 2) in vec2 fromCenter;

layout(location = 0) out vec2 texCoord;
layout(location = 1) out vec2 centerOffset;

layout(std140, binding = 0) uniform Uniforms {
    mat4 matrix;
    vec4 extents;
    vec2 halfSize;
    float exponent;
    float opacity;
};

out gl_PerVertex { vec4 gl_Position; };

void main()
{
    texCoord = pictureCoordinate;
    centerOffset = fromCenter;
    gl_Position = matrix * position;
}
