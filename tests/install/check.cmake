# Installs the project, builds the consumer the given WAY against the installed files alone, and runs it.
file(REMOVE_RECURSE ${WORK_DIR})
set(PREFIX ${WORK_DIR}/prefix)

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX})
# An installed tree can be moved: nothing in it may name the folder that it was installed to.
file(RENAME ${PREFIX} ${WORK_DIR}/moved)
set(PREFIX ${WORK_DIR}/moved)

if(WAY STREQUAL "cmake")
  run(${CMAKE_COMMAND} -S ${CONSUMER_DIR}/consumer -B ${WORK_DIR}/build -D CMAKE_PREFIX_PATH=${PREFIX}
      -D CMAKE_C_COMPILER=${CC})
  run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
  run(${WORK_DIR}/build/consumer)
  # The program finds the module and the schemas from where it stands.
  run(${PREFIX}/bin/oclacp translate --to native ${EXAMPLES}/requests/create-interface.json)
else()
  set(ENV{PKG_CONFIG_PATH} ${PREFIX}/${LIBDIR}/pkgconfig)
  function(ask_pkg_config RESULT)
    execute_process(
      COMMAND pkg-config ${ARGN} oclacp
      OUTPUT_VARIABLE ANSWER
      OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(ANSWER UNIX_COMMAND "${ANSWER}")
    set(${RESULT} ${ANSWER} PARENT_SCOPE)
  endfunction()
  ask_pkg_config(CFLAGS --cflags)
  ask_pkg_config(MODULE --variable=module)
  run(${CC} -std=c11 ${CFLAGS} -DMODULE="${MODULE}" ${CONSUMER_DIR}/consumer/consumer.c -rdynamic -o ${WORK_DIR}/consumer)
  run(${WORK_DIR}/consumer)
endif()
