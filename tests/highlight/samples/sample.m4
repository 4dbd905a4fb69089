dnl It's a "remark
# don't
AC_INIT([walk], [1.2], [bug@example.org])
AC_MSG_CHECKING([whether it's on])
if test "x$a" = "xyes # no"; then # the 'end
  AC_DEFINE([SIZE], [12], [Define if you don't])
fi
