// Add two vectors on the device.
#include <cstdio>
#include <vector>
#define CHECK(x) do { cudaError_t e = (x); if (e != cudaSuccess) exit(1); } while (0)

__constant__ float factor;

template <typename T>
__global__ void add(const T *__restrict__ a, const T *b, T *out, size_t n)
{
    __shared__ T tile[256];
    const int i = blockIdx.x * blockDim.x + threadIdx.x;
    if (i < n) {
        tile[threadIdx.x] = a[i] + b[i];
        __syncthreads();
        out[i] = tile[threadIdx.x] * factor;
    }
}

/* The largest value
   of a warp. */
__device__ __forceinline__ float warpMax(float v)
{
    for (int d = warpSize / 2; d > 0; d >>= 1)
        v = fmaxf(v, __shfl_down_sync(0xFFFFFFFF, v, d));
    return v;
}

int main()
{
    constexpr size_t n = 1 << 20;
    float *a = nullptr, *b = nullptr, *out = nullptr;
    CHECK(cudaMallocManaged(&a, n * sizeof(float)));
    dim3 block(256), grid((n + block.x - 1) / block.x);
    cudaStream_t stream;
    cudaStreamCreate(&stream);
    add<float><<<grid, block, 0, stream>>>(a, b, out, n);
    CHECK(cudaDeviceSynchronize());
    std::printf("first \"sum\": %g\n", out[0] + 1.5e3f);
    cudaFree(a);
    return 0;
}
