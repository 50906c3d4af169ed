# Installs the library into a scratch prefix, then builds and runs an outside
# program twice: through find_package(Zem) and through pkg-config.
set(prefix ${BUILD}/install-check)
file(REMOVE_RECURSE ${prefix} ${BUILD}/consumer-build)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix} OUTPUT_QUIET RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "install failed")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SRC}/tests/install/consumer -B ${BUILD}/consumer-build
                        -DCMAKE_PREFIX_PATH=${prefix} OUTPUT_QUIET RESULT_VARIABLE rc)
if(rc EQUAL 0)
  execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD}/consumer-build OUTPUT_QUIET RESULT_VARIABLE rc)
endif()
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "find_package(Zem) consumer did not build")
endif()
execute_process(COMMAND ${BUILD}/consumer-build/consumer RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "find_package(Zem) consumer failed")
endif()
# pkg-config: compile and link against the shared library.
set(pcdir ${prefix}/${LIBDIR}/pkgconfig)
execute_process(COMMAND ${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${pcdir} pkg-config --cflags --libs zem
                OUTPUT_VARIABLE flags RESULT_VARIABLE rc OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "pkg-config does not know zem")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
execute_process(COMMAND ${CC} -std=c99 ${SRC}/tests/install/consumer/main.c ${flags} -o ${BUILD}/consumer-pc
                RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "pkg-config consumer did not build")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/${LIBDIR} ${BUILD}/consumer-pc
                RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "pkg-config consumer failed")
endif()
