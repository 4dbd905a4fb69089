// It's a "remark
/* don't
   open */
__kernel void walk(__global float *a, const uint n)
{
    const char c = '"';
    size_t i = get_global_id(0); // the 'end
    if (i < 1'000 && c != '\'')
        a[i] = fma(a[i], 2.5f, 0x1F);
    printf("it's // %d", n);
}
