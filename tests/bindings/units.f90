! Where the lines of the library go, case by case: units CASE.
program units
    use, intrinsic :: iso_c_binding, only: c_double
    use ktl
    implicit none
    character(len=20) :: which
    real(c_double) :: values(2), t

    call get_command_argument(1, which)
    select case (which)
    case ('unopened') ! as WRITE does: a file fort.13
        call ktl_properties(ktlrpt, 10.0_c_double, 100.0_c_double, 'Q', values)
    case ('redirected') ! unit 6 opened to a file, with lines of the program before and behind
        open (6, file='report.txt')
        write (6, '(a)') 'before'
        t = ktl_pt(380.0_c_double)
        write (6, '(a)') 'behind'
    case ('refused') ! units that take no formatted line: standard error
        ktlerr%iunit = -3
        t = ktl_pt(380.0_c_double)
        open (20, file='binary.dat', form='unformatted')
        ktlerr%iunit = 20
        t = ktl_pt(390.0_c_double)
        close (20, status='delete')
    case ('stop') ! the error limit: every buffer of both languages is written
        open (13, file='program.log')
        write (13, '(a)') 'line of the program'
        open (14, file='library.log')
        ktlerr%iunit = 14
        ktlerr%maxer = 1
        write (6, '(a)') 'before the stop'
        t = ktl_pt(380.0_c_double)
        call write_with_c()
        t = ktl_pt(390.0_c_double)
        write (6, '(a)') 'not reached'
    case ('closed') ! a unit opened, closed and opened again
        open (13, file='first.log')
        call ktl_properties(ktlrpt, 10.0_c_double, 100.0_c_double, 'Q', values)
        close (13)
        open (13, file='second.log')
        call ktl_properties(ktlrpt, 10.0_c_double, 100.0_c_double, 'R', values)
    end select

contains

    ! A line in a buffer of the C library.
    subroutine write_with_c()
        use, intrinsic :: iso_c_binding, only: c_char, c_int, c_null_char
        interface
            integer(c_int) function puts(text) bind(c)
                import :: c_char, c_int
                character(kind=c_char), intent(in) :: text(*)
            end function puts
        end interface
        integer(c_int) :: ignored

        ignored = puts('line of the C library' // c_null_char)
    end subroutine write_with_c

end program units
