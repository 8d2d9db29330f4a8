# Every routine of ktlftn.h has a Fortran name, a place in the module and a manual page, and none has one more. Every
# call of steam.h and process.h has a manual page.
file(STRINGS ${SOURCE}/include/ktl/ktlftn.h lines REGEX "^KTL_API [a-z]+ [a-z0-9_]+\\(")
list(TRANSFORM lines REPLACE "^KTL_API [a-z]+ ([a-z0-9_]+)\\(.*" "\\1" OUTPUT_VARIABLE routines)
# For C and C++ alone: Fortran texts have lengths, and Fortran opens its units itself.
set(not_fortran ktlftn_len ktl_connect_unit)

file(STRINGS ${SOURCE}/bindings/fortran/routines.def doors REGEX "^KTL_[A-Z_]+\\(")
list(TRANSFORM doors REPLACE "^KTL_[A-Z_]+\\(([a-z0-9_]+)\\)" "\\1")
# These have argument lists of their own.
list(APPEND doors ktl_id ktlftn ktler)

file(STRINGS ${SOURCE}/bindings/fortran/ktl.f90 module REGEX "name='[a-z0-9_]+_'|^        subroutine (ktlftn|ktler)\\(")
list(TRANSFORM module REPLACE ".*name='([a-z0-9_]+)_'.*" "\\1")
list(TRANSFORM module REPLACE "^ *subroutine ([a-z]+)\\(.*" "\\1")

file(GLOB files ${SOURCE}/docs/man/*.3)
set(pages)
foreach(file IN LISTS files)
    file(STRINGS ${file} names REGEX "^\\.Nm [a-z0-9_]+( ,)?$")
    list(APPEND pages ${names})
endforeach()
list(TRANSFORM pages REPLACE "^\\.Nm ([a-z0-9_]+).*" "\\1")

set(wanted_doors ${routines})
list(REMOVE_ITEM wanted_doors ${not_fortran})
file(READ ${SOURCE}/include/ktl/steam.h steam)
file(READ ${SOURCE}/include/ktl/process.h process)
string(APPEND steam "${process}")
string(REGEX MATCHALL "KTL_API [a-z_* ]+ ktl_[a-z_]+\\(" calls "${steam}")
list(TRANSFORM calls REPLACE ".* (ktl_[a-z_]+)\\(" "\\1")
# Records and the routines that return pointers.
set(wanted_pages ${routines} ${calls} ktlerr ktl_cu ktl_cu_of_thread ktl_nt ktl_nt_of_thread ktl_constants ktl_set_line_writer)
function(compare what found wanted)
    list(SORT found)
    list(SORT wanted)
    if(NOT found STREQUAL wanted)
        message(SEND_ERROR "${what}\n  have   ${found}\n  should ${wanted}")
    endif()
endfunction()
compare("routines.def" "${doors}" "${wanted_doors}")
compare("the module" "${module}" "${wanted_doors}")
compare("the manual pages" "${pages}" "${wanted_pages}")
list(LENGTH routines count)
list(LENGTH calls count_calls)
if(count LESS 35 OR count_calls LESS 10)
    message(SEND_ERROR "only ${count} routines and ${count_calls} calls found in the headers")
endif()
