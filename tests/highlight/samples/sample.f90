! Integrate a function by the trapezoid rule.
module quad
  use, intrinsic :: iso_fortran_env, only: real64, output_unit
  implicit none
  private
  public :: trapezoid

  type, public :: grid_t
    integer :: n = 100
    real(real64), allocatable :: x(:)
  contains
    procedure :: fill => grid_fill
  end type grid_t

  interface
    pure real(real64) function fun(x)
      import real64
      real(real64), intent(in) :: x
    end function fun
  end interface

contains

  subroutine grid_fill(self, a, b)
    class(grid_t), intent(inout) :: self
    real(real64), value :: a, b
    integer :: i
    if (allocated(self%x)) deallocate(self%x)
    self%x = [(a + (b - a) * real(i, real64) / self%n, i = 0, self%n)]
  end subroutine grid_fill

  recursive function trapezoid(f, a, b) result(area)
    procedure(fun) :: f
    real(real64), intent(in) :: a, b
    real(real64) :: area
    if (a >= b .or. .not. (b > 1.0e-3_real64)) then
      write (output_unit, "(a, i0)") "empty ""range""", 42
      error stop
    end if
    area = 0.5d0 * (b - a) * (f(a) + &
           f(b))
  end function trapezoid

#if 0
  logical :: unused = .true.
#endif
end module quad
