# It's a "remark
cdef extern from "math.h":
    double sin(double x) nogil
cpdef int walk(int n) except -1:
    '''Doesn't "open'''
    cdef char *text = b"it's # here" # the 'end
    return n << 2 if n > 0x1F else <int>1.5e3
