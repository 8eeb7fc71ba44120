# Settings that every target of the project shares.

# Warnings, sanitizers and the rules of arithmetic: a result has the same bits on every processor.
function(keocam_target_defaults target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
    -Woverloaded-virtual -Wconversion -Wsign-conversion -Wundef -ffp-contract=off)
  if(KEOCAM_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(KEOCAM_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${KEOCAM_SANITIZE} -fno-sanitize-recover=all
      -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=${KEOCAM_SANITIZE})
  endif()
endfunction()
