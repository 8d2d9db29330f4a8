! A table of steam on all processors: each thread has working records of its own, so every value is the one that a
! single thread computes, to the last bit.
program threads
    use, intrinsic :: iso_c_binding, only: c_double
    use, intrinsic :: iso_fortran_env, only: int64
    use omp_lib, only: omp_get_num_threads
    use ktl
    implicit none
    integer, parameter :: pressures = 60, temperatures = 80
    real(c_double) :: shared_table(2, temperatures, pressures), alone(2, temperatures, pressures)
    integer :: i, team

    ktlerr%nprer = 0 ! trial volumes of the finder that lie out of range: counted, not printed
    team = 1
    !$omp parallel do schedule(dynamic) num_threads(4)
    do i = 1, pressures
        if (i == 1) team = omp_get_num_threads()
        call row(i, shared_table(:, :, i))
    end do
    !$omp end parallel do

    do i = 1, pressures
        call row(i, alone(:, :, i))
    end do

    print '(a, i0)', 'threads ', team
    print '(a, l1)', 'same bits as one thread: ', all(bits(shared_table) == bits(alone))
    print '(a, 2f12.5)', 'h and s at 100 bar, 500 degC: ', shared_table(:, 50, 20)
    print '(a, i0)', 'trial volumes out of range: ', ktlerr%ientry
    print '(a, i0)', 'states without enthalpy: ', count(shared_table(1, :, :) < 0.0_c_double)

contains

    elemental integer(int64) function bits(value)
        real(c_double), intent(in) :: value

        bits = transfer(value, bits)
    end function bits

    ! Enthalpy and entropy at 5 i bar, 10 to 800 degC.
    subroutine row(i, values)
        integer, intent(in) :: i
        real(c_double), intent(out) :: values(:, :)
        integer :: j
        real(c_double) :: pair(2)

        do j = 1, temperatures
            pair = -1.0_c_double
            call ktl_properties(ktlrpt, 5.0_c_double * i, 10.0_c_double * j, 'H,S', pair)
            values(:, j) = pair
        end do
    end subroutine row

end program threads
