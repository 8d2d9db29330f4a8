! ktl: properties of water and steam after the 1967 IFC Formulation for Industrial Use (IFC-67).
!
! Units: pressure p in bar, temperature t in degC, specific volume v in m3/kg, enthalpy h and internal energy u in
! kJ/kg, entropy s and heat capacity cp in kJ/(kg K), quality x as a mass fraction 0..1. Valid range: 0.01 to 800 degC,
! 0.006112444 to 1000 bar. The header ktlftn.h describes every routine in full.
!
! Failures are lines on output units, through the Fortran run-time library, and never a status: see ktlerr.
!
! Threads: the working records are one to a thread, so any number of threads may call any routine.
!
! Pure are ktl_ci and ktl_cj alone: every other routine keeps working terms from call to call, or may write a line.
module ktl
    use, intrinsic :: iso_c_binding, only: c_double, c_f_pointer, c_int, c_ptr
    implicit none
    private

    ! ---- Regions: what a finder returns, and what its two arguments then hold ----------------------------------------

    integer(c_int), parameter, public :: ktl_water = 1                ! sub-region 1, water up to 350 degC: p, t
    integer(c_int), parameter, public :: ktl_steam = 2                ! sub-region 2, steam: p, t
    integer(c_int), parameter, public :: ktl_near_critical_steam = 3  ! sub-region 3, steam, and above 374.15 degC: v, t
    integer(c_int), parameter, public :: ktl_near_critical_water = 4  ! sub-region 3, water, 350 to 374.15 degC: v, t
    integer(c_int), parameter, public :: ktl_wet_near_critical = 5    ! two phases, saturated above 350 degC: x, t
    integer(c_int), parameter, public :: ktl_wet = 6                  ! two phases, saturated up to 350 degC: x, t
    integer(c_int), parameter, public :: ktl_no_state = 7             ! no valid state: arguments as given

    ! ---- Error accounting --------------------------------------------------------------------------------------------

    type, bind(c), public :: ktlerr_record
        integer(c_int) :: iunit  ! output unit of the diagnostic lines, initially 6
        integer(c_int) :: nprer  ! errors whose line is printed, initially 1000000
        integer(c_int) :: maxer  ! errors tolerated, initially 1000000; the next one stops the program
        integer(c_int) :: ientry ! errors counted so far
    end type ktlerr_record

    ! The record of the process, the one that COMMON /KTLERR/ names too. Assign to its members at will.
    type(ktlerr_record), pointer, protected, public :: ktlerr => null()

    ! ---- Shapes of the routines, for procedures of the caller's own too ----------------------------------------------

    abstract interface
        ! A state finder: overwrites the two known values with the variables of the region that it returns.
        integer(c_int) function ktl_finder(first, second, eps) bind(c)
            import :: c_double, c_int
            real(c_double), intent(inout) :: first, second
            real(c_double), intent(in) :: eps
        end function ktl_finder

        ! A property of two variables.
        real(c_double) function ktl_property(first, second) bind(c)
            import :: c_double
            real(c_double), intent(in) :: first, second
        end function ktl_property

        ! A property of two variables that keeps and writes nothing.
        pure real(c_double) function ktl_pure_property(first, second) bind(c)
            import :: c_double
            real(c_double), intent(in) :: first, second
        end function ktl_pure_property

        ! A property of two variables that is itself found to a relative tolerance.
        real(c_double) function ktl_property_eps(first, second, eps) bind(c)
            import :: c_double
            real(c_double), intent(in) :: first, second, eps
        end function ktl_property_eps

        ! A property of the saturation line.
        real(c_double) function ktl_saturation(value) bind(c)
            import :: c_double
            real(c_double), intent(in) :: value
        end function ktl_saturation

        ! Prepares the working terms of a sub-region.
        subroutine ktl_terms(first, second) bind(c)
            import :: c_double
            real(c_double), intent(in) :: first, second
        end subroutine ktl_terms

        ! Root in one unknown: a and b, the ends of the search interval, are overwritten.
        real(c_double) function ktl_solver(f, y, x, a, b, eps) bind(c)
            import :: c_double, ktl_property
            procedure(ktl_property) :: f
            real(c_double), intent(in) :: y, x, eps
            real(c_double), intent(inout) :: a, b
        end function ktl_solver

        real(c_double) function ktl_solver_eps(f, y, x, a, b, eps) bind(c)
            import :: c_double, ktl_property_eps
            procedure(ktl_property_eps) :: f
            real(c_double), intent(in) :: y, x, eps
            real(c_double), intent(inout) :: a, b
        end function ktl_solver_eps
    end interface
    public :: ktl_finder, ktl_property, ktl_pure_property, ktl_property_eps

    ! ---- State finders -----------------------------------------------------------------------------------------------

    procedure(ktl_finder), bind(c, name='ktlrpt_'), public :: ktlrpt ! pressure and temperature
    procedure(ktl_finder), bind(c, name='ktlrpx_'), public :: ktlrpx ! pressure and quality
    procedure(ktl_finder), bind(c, name='ktlrtx_'), public :: ktlrtx ! temperature and quality
    procedure(ktl_finder), bind(c, name='ktlrph_'), public :: ktlrph ! pressure and enthalpy
    procedure(ktl_finder), bind(c, name='ktlrps_'), public :: ktlrps ! pressure and entropy
    procedure(ktl_finder), bind(c, name='ktlrpu_'), public :: ktlrpu ! pressure and internal energy
    procedure(ktl_finder), bind(c, name='ktlrpv_'), public :: ktlrpv ! pressure and volume
    procedure(ktl_finder), bind(c, name='ktlrtv_'), public :: ktlrtv ! temperature and volume
    procedure(ktl_finder), bind(c, name='ktlrth_'), public :: ktlrth ! temperature and enthalpy
    procedure(ktl_finder), bind(c, name='ktlrts_'), public :: ktlrts ! temperature and entropy
    procedure(ktl_finder), bind(c, name='ktlrtu_'), public :: ktlrtu ! temperature and internal energy
    procedure(ktl_finder), bind(c, name='ktlrsx_'), public :: ktlrsx ! entropy and quality
    procedure(ktl_finder), bind(c, name='ktlrhs_'), public :: ktlrhs ! enthalpy and entropy
    procedure(ktl_finder), bind(c, name='ktlrus_'), public :: ktlrus ! internal energy and entropy
    procedure(ktl_finder), bind(c, name='ktlrvh_'), public :: ktlrvh ! volume and enthalpy
    procedure(ktl_finder), bind(c, name='ktlrvs_'), public :: ktlrvs ! volume and entropy
    procedure(ktl_finder), bind(c, name='ktlrvu_'), public :: ktlrvu ! volume and internal energy

    ! ---- Properties of two variables, of the state that ktlrpv or ktlrts finds ---------------------------------------

    procedure(ktl_property_eps), bind(c, name='ktl_sp_'), public :: ktl_sp ! entropy at p, v
    procedure(ktl_property_eps), bind(c, name='ktl_hp_'), public :: ktl_hp ! enthalpy at p, v
    procedure(ktl_property_eps), bind(c, name='ktl_up_'), public :: ktl_up ! internal energy at p, v
    procedure(ktl_property_eps), bind(c, name='ktl_ht_'), public :: ktl_ht ! enthalpy at t, s
    procedure(ktl_property_eps), bind(c, name='ktl_ut_'), public :: ktl_ut ! internal energy at t, s

    ! ---- Sub-region 1, water up to 350 degC, at p, t -----------------------------------------------------------------

    procedure(ktl_terms), bind(c, name='comt1_'), public :: comt1
    procedure(ktl_property), bind(c, name='ktl_c1_'), public :: ktl_c1 ! volume
    procedure(ktl_property), bind(c, name='ktl_d1_'), public :: ktl_d1 ! enthalpy
    procedure(ktl_property), bind(c, name='ktl_e1_'), public :: ktl_e1 ! entropy
    procedure(ktl_property), bind(c, name='ktl_f1_'), public :: ktl_f1 ! internal energy
    procedure(ktl_property), bind(c, name='ktl_h1_'), public :: ktl_h1 ! isobaric heat capacity

    ! ---- Sub-region 2, steam, at p, t --------------------------------------------------------------------------------

    procedure(ktl_terms), bind(c, name='comt2_'), public :: comt2
    procedure(ktl_property), bind(c, name='ktl_c2_'), public :: ktl_c2 ! volume
    procedure(ktl_property), bind(c, name='ktl_d2_'), public :: ktl_d2 ! enthalpy
    procedure(ktl_property), bind(c, name='ktl_e2_'), public :: ktl_e2 ! entropy
    procedure(ktl_property), bind(c, name='ktl_f2_'), public :: ktl_f2 ! internal energy
    procedure(ktl_property), bind(c, name='ktl_h2_'), public :: ktl_h2 ! isobaric heat capacity

    ! ---- Sub-region 3, near-critical, at v, t ------------------------------------------------------------------------

    procedure(ktl_terms), bind(c, name='comt3_'), public :: comt3
    procedure(ktl_property), bind(c, name='ktl_a3_'), public :: ktl_a3 ! pressure
    procedure(ktl_property), bind(c, name='ktl_d3_'), public :: ktl_d3 ! enthalpy
    procedure(ktl_property), bind(c, name='ktl_e3_'), public :: ktl_e3 ! entropy
    procedure(ktl_property), bind(c, name='ktl_f3_'), public :: ktl_f3 ! internal energy
    procedure(ktl_property), bind(c, name='ktl_h3_'), public :: ktl_h3 ! isobaric heat capacity
    procedure(ktl_property), bind(c, name='cp3e_'), public :: cp3e     ! second name of ktl_h3

    ! ---- Saturation line ---------------------------------------------------------------------------------------------

    procedure(ktl_saturation), bind(c, name='ktl_pt_'), public :: ktl_pt ! pressure at t
    procedure(ktl_saturation), bind(c, name='psl1_'), public :: psl1     ! pressure at t; keeps the slope
    procedure(ktl_saturation), bind(c, name='ktl_it_'), public :: ktl_it ! temperature at p
    procedure(ktl_saturation), bind(c, name='ktl_tp_'), public :: ktl_tp ! temperature at p, as ever; use ktl_it

    ! ---- Transport properties, at v, t -------------------------------------------------------------------------------

    procedure(ktl_pure_property), bind(c, name='ktl_ci_'), public :: ktl_ci ! dynamic viscosity, Pa s
    procedure(ktl_pure_property), bind(c, name='ktl_cj_'), public :: ktl_cj ! thermal conductivity, W/(m K)

    ! ---- Solvers -----------------------------------------------------------------------------------------------------

    procedure(ktl_solver), bind(c, name='ktl_i1_'), public :: ktl_i1     ! z between a and b with f(y, z) = x
    procedure(ktl_solver), bind(c, name='ktl_i2_'), public :: ktl_i2     ! f(z, y) = x
    procedure(ktl_solver_eps), bind(c, name='ktl_i3_'), public :: ktl_i3 ! f(z, y, eps) = x

    interface
        ! z in a1..b1 and w in a2..b2 with f1(z, w) = x and f2(z, w) = y; on return a1 = b1 = z, a2 = b2 = w.
        subroutine ktl_id(f1, x, f2, y, a1, b1, a2, b2, eps) bind(c, name='ktl_id_')
            import :: c_double, ktl_property
            procedure(ktl_property) :: f1, f2
            real(c_double), intent(in) :: x, y, eps
            real(c_double), intent(inout) :: a1, b1, a2, b2
        end subroutine ktl_id

        ! The entry: see ktl_properties, which also minds the size of prodep. The codes end with a full stop, a blank,
        ! or the text.
        subroutine ktlftn(regfun, indep1, indep2, strdep, prodep)
            import :: c_double, ktl_finder
            procedure(ktl_finder) :: regfun
            real(c_double), intent(in) :: indep1, indep2
            character(len=*), intent(in) :: strdep
            real(c_double), intent(inout) :: prodep(*)
        end subroutine ktlftn

        ! Reports and counts one error, as the equations do; the name is not written. Digits of the case code i label a
        ! and b: 1 P, 2 T, 3 H, 4 V, 5 S; a negative code reports a failed convergence, else a range.
        subroutine ktler(name, i, a, b)
            import :: c_double, c_int
            character(len=*), intent(in) :: name
            integer(c_int), intent(in) :: i
            real(c_double), intent(in) :: a, b
        end subroutine ktler

        ! The state for which this thread's working terms were last prepared; zeros before the first.
        subroutine ktl_prepared_state(p, t, v) bind(c, name='ktl_prepared_state')
            import :: c_double
            real(c_double), intent(out) :: p, t, v
        end subroutine ktl_prepared_state

        ! Slope of the saturation line that psl1 last left in this thread: (p / 80.3334) d ln p / d theta.
        real(c_double) function ktl_last_psl1_slope() bind(c, name='ktl_last_psl1_slope')
            import :: c_double
        end function ktl_last_psl1_slope
    end interface
    public :: ktl_id, ktlftn, ktler, ktl_prepared_state, ktl_last_psl1_slope

    public :: ktl_properties

contains

    ! Properties of one state: as many codes as values has elements are evaluated, further ones are not read.
    !
    ! codes, separated by commas, for instance 'V,H,S': P T V H S X CP, DV (dynamic viscosity, Pa s), TC (thermal
    ! conductivity, kW/(m K)). Elements without a value keep what they held: give them a marker first. The lines of
    ! failures go to unit 13 (see ktlftn.h).
    subroutine ktl_properties(finder, first, second, codes, values)
        procedure(ktl_finder) :: finder
        real(c_double), intent(in) :: first, second
        character(len=*), intent(in) :: codes
        real(c_double), intent(inout), contiguous :: values(:)

        if (size(values) == 0) return
        call ktlftn(finder, first, second, codes(:length_of_codes(codes, size(values))), values)
    end subroutine ktl_properties

    ! Length of the first `count` codes of the list.
    pure integer function length_of_codes(codes, count) result(length)
        character(len=*), intent(in) :: codes
        integer, intent(in) :: count
        integer :: at, commas

        commas = 0
        length = len(codes)
        do at = 1, len(codes)
            if (codes(at:at) == ',') commas = commas + 1
            if (commas < count) cycle
            length = at - 1
            return
        end do
    end function length_of_codes

    ! Called once, when the library is loaded.
    subroutine associate_record(record) bind(c, name='ktl_fortran_associate')
        type(c_ptr), value :: record

        call c_f_pointer(record, ktlerr)
    end subroutine associate_record

end module ktl
