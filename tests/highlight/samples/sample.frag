#version 460 core
#extension GL_ARB_shading_language_include : enable
// Light a surface with one lamp.
precision highp float;

#define LAMPS 4
layout(location = 0) in vec3 vNormal;
layout(location = 1) in vec2 vUv;
layout(location = 0) out vec4 fragColor;
layout(std140, binding = 0) uniform Camera {
    mat4 view;
    vec3 eye;
};
layout(set = 0, binding = 1) uniform sampler2D albedo;
uniform float gain = 1.5e0;
const int steps = 0x10;

struct Lamp {
    vec3 position;
    float power;
};

/* How much of the light
   comes back. */
float diffuse(in vec3 n, const Lamp lamp)
{
    vec3 l = normalize(lamp.position - eye);
    return max(dot(n, l), 0.0) * lamp.power;
}

void main()
{
    vec4 base = texture(albedo, vUv);
    if (base.a < 0.01 || isnan(base.r))
        discard;
    float sum = 0.0;
    for (int i = 0; i < LAMPS && i != steps; ++i)
        sum += diffuse(vNormal, Lamp(vec3(i), gain));
    fragColor = vec4(base.rgb * clamp(sum, 0.0, 1.0), gl_FragCoord.z);
}
