! Expansion in a turbine stage, with the module: the state before it from pressure and temperature, the state behind it
! from the stage efficiency, by a finder and a property of the program's own.
module stages
    use, intrinsic :: iso_c_binding, only: c_double, c_int
    use ktl
    implicit none

contains

    ! Finder: pressure and entropy, in two phases up to 350 degC; no state elsewhere.
    integer(c_int) function wet_from_entropy(p, s, eps) bind(c) result(region)
        real(c_double), intent(inout) :: p, s
        real(c_double), intent(in) :: eps
        real(c_double) :: ts, water, steam

        region = ktl_no_state
        ts = ktl_it(p)
        water = ktl_e1(p, ts)
        steam = ktl_e2(p, ts)
        if (s < water + eps .or. s > steam - eps) return
        p = (s - water) / (steam - water)
        s = ts
        region = ktl_wet
    end function wet_from_entropy

    ! Enthalpy of steam along an isobar, for the solver.
    real(c_double) function enthalpy(p, t) bind(c)
        real(c_double), intent(in) :: p, t

        enthalpy = ktl_d2(p, t)
    end function enthalpy

end module stages

program turbine
    use, intrinsic :: iso_c_binding, only: c_double, c_int
    use ktl
    use stages
    implicit none
    real(c_double) :: inlet(2), outlet(3), h, t, a, b, p, v, work(2)
    integer(c_int) :: region

    print '(a, i0, a, i0)', 'diagnostics on unit ', ktlerr%iunit, ', errors tolerated: ', ktlerr%maxer

    call ktl_properties(ktlrpt, 30.0_c_double, 400.0_c_double, 'H,S', inlet)
    print '(a, f9.3, a, f8.5)', 'inlet   h ', inlet(1), '  s ', inlet(2)

    call ktl_properties(wet_from_entropy, 0.05_c_double, inlet(2), 'H,X,T,this is not read', outlet)
    print '(a, f9.3, a, f8.5, a, f8.4)', 'ideal   h ', outlet(1), '  x ', outlet(2), '  t ', outlet(3)

    h = inlet(1) - 0.87_c_double * (inlet(1) - outlet(1))
    work = [0.05_c_double, h]
    region = ktlrph(work(1), work(2), 1.0e-8_c_double)
    print '(a, f9.3, a, f8.5, a, i0, a, l1)', 'actual  h ', h, '  x ', work(1), '  region ', region, '  wet ', &
        region == ktl_wet

    a = 200.0_c_double
    b = 500.0_c_double
    t = ktl_i1(enthalpy, 30.0_c_double, 3000.0_c_double, a, b, 1.0e-10_c_double)
    call ktl_prepared_state(p, t=a, v=v)
    print '(a, f10.5, a, f6.2)', 'h = 3000 kJ/kg at 30 bar: t ', t, ', terms last prepared at p ', p

    ! Too few elements: the codes that do not fit are not evaluated.
    inlet = -1.0_c_double
    call ktl_properties(ktlrpt, 30.0_c_double, 400.0_c_double, 'P,T,V,H', inlet)
    print '(a, 2f9.3)', 'two of four codes ', inlet

    ! A line of the library among the program's own, on one unit, in order.
    ktlerr%iunit = 6
    t = ktl_pt(400.0_c_double)
    print '(a, f5.1, a, i0)', 'beyond the end of the saturation line: ', t, ', errors ', ktlerr%ientry
    print '(a, f10.7, a, f8.5)', 'steam at 1 bar, 200 degC: viscosity ', &
        ktl_ci(ktl_c2(1.0_c_double, 200.0_c_double), 200.0_c_double) * 1000.0_c_double, ' mPa s, conductivity ', &
        ktl_cj(ktl_c2(1.0_c_double, 200.0_c_double), 200.0_c_double)
end program turbine
