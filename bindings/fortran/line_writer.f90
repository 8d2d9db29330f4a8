! One line of a report to a unit of the Fortran run-time library: the file that the program has opened on it, or what
! WRITE makes of a unit that nobody has opened. Returns 1, or 0 when the unit does not take it (a negative number, an
! unformatted or read-only file).
integer(c_int) function ktl_fortran_write_line(unit, text, length) bind(c, name='ktl_fortran_write_line')
    use, intrinsic :: iso_c_binding, only: c_char, c_int, c_size_t
    implicit none
    integer(c_int), value :: unit
    integer(c_size_t), value :: length
    character(kind=c_char), intent(in) :: text(length)
    integer :: status

    write (unit, '(*(A))', iostat=status) text
    ktl_fortran_write_line = merge(1_c_int, 0_c_int, status == 0)
end function ktl_fortran_write_line
