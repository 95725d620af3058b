# Warnings and sanitizers for every target of this project.
# qxtools_options(<target>) is called once a target, right after it is made.
function(qxtools_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wshadow -Wconversion)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # g++ 12 sees overlapping copies in plain concatenations of std::string.
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(QXTOOLS_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(QXTOOLS_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # The sanitizers' own checks hide from g++ that a std::variant is read as what it holds.
    target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
  endif()
  if(QXTOOLS_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${QXTOOLS_SANITIZE}
                           -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${QXTOOLS_SANITIZE})
  endif()
endfunction()
