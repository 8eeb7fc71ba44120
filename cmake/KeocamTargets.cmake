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

# keocam_compile_in_batches(TARGET [EXCEPT FILE...])
#
# Several files in one go: reading the same headers again, and what they generate, takes longer than the files' own code.
# EXCEPT names files whose private names another file has too.
option(KEOCAM_COMPILE_IN_BATCHES "Compile several files in one go; slower when one file is worked on" ON)
function(keocam_compile_in_batches target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "EXCEPT")
  if(KEOCAM_COMPILE_IN_BATCHES)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
    set_source_files_properties(${arg_EXCEPT} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endif()
endfunction()
