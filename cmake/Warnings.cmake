# One interface target carries the compiler settings of everything that is written here.
add_library(oclacp_build_settings INTERFACE)
target_compile_options(
  oclacp_build_settings
  INTERFACE $<$<BOOL:${OCLACP_WERROR}>:-Werror>
            -Wall
            -Wextra
            -Wpedantic
            -Wconversion
            -Wshadow
            $<$<OR:$<COMPILE_LANGUAGE:C>,$<COMPILE_LANGUAGE:CXX>>:-Wmissing-declarations>)

if(OCLACP_SANITIZE)
  target_compile_options(oclacp_build_settings INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                         -fno-omit-frame-pointer)
  target_link_options(oclacp_build_settings INTERFACE -fsanitize=address,undefined)
endif()

if(OCLACP_COVERAGE)
  target_compile_options(oclacp_build_settings INTERFACE --coverage -O0)
  target_link_options(oclacp_build_settings INTERFACE --coverage)
endif()

if(OCLACP_FUZZ)
  target_compile_options(oclacp_build_settings INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                         -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(oclacp_build_settings INTERFACE -fsanitize=address,undefined)
endif()
