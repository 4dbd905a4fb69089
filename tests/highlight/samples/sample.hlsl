// Transform, light and blur.
#include "common.hlsli"
#define COUNT 8

cbuffer PerFrame : register(b0)
{
    row_major float4x4 worldViewProj;
    float3 lightDir;
    min16float gain;
};

Texture2D<float4> albedo : register(t0);
SamplerState linearWrap : register(s0);
RWStructuredBuffer<uint> counts : register(u1);
groupshared float shared_sums[COUNT];

struct VSIn { float3 pos : POSITION; float3 nrm : NORMAL; float2 uv : TEXCOORD0; };
struct VSOut { float4 pos : SV_Position; float2 uv : TEXCOORD0; };

VSOut VSMain(VSIn v, uint id : SV_VertexID)
{
    VSOut o = (VSOut)0;
    o.pos = mul(float4(v.pos, 1.0f), worldViewProj);
    o.uv = v.uv;
    return o;
}

/* The colour of a pixel,
   or nothing. */
float4 PSMain(VSOut i) : SV_Target
{
    float4 c = albedo.Sample(linearWrap, i.uv);
    clip(c.a - 0.5);
    [unroll]
    for (int k = 0; k < COUNT; ++k)
        c.rgb += saturate(dot(lightDir, c.rgb)) * 1.5e-2;
    return lerp(c, (float4)1, gain);
}

[numthreads(8, 8, 1)]
void CSMain(uint3 tid : SV_DispatchThreadID)
{
    if (tid.x == 0 && tid.y != 0xFF) InterlockedAdd(counts[0], 1u);
    GroupMemoryBarrierWithGroupSync();
}
