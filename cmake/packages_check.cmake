# Read by cpack before it makes anything: what Debian packages need to get their dependencies.
foreach(tool IN ITEMS dpkg-deb dpkg-shlibdeps file)
    find_program(ktl_${tool} ${tool})
    if(NOT ktl_${tool})
        message(FATAL_ERROR "${tool} is missing, packages would be wrong: apt install dpkg-dev file, or use tools/packages.sh")
    endif()
endforeach()
