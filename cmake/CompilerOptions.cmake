# The compiler's and the linker's options, and nowhere else.
if(UNIX AND NOT APPLE)
  set(QXTOOLS_ELF ON)
endif()

# qxtools_options(<target>): warnings and sanitizers. It is called once a target, right after it is made.
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

# qxtools_unity(<target>): compiles many files as one where QXTOOLS_UNITY says so: quicker, since the standard headers
# are read once. Names of a file's own must differ then from those of others in their namespace. The presets `release`
# and `package` compile file by file, which shows that each file includes what it needs.
function(qxtools_unity target)
  if(QXTOOLS_UNITY)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 15)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      # A class of one file may have members of that file's own types.
      target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
  endif()
endfunction()

# qxtools_library_options(<target>): how the library is bound, for a shared one.
function(qxtools_library_options target)
  if(NOT QXTOOLS_ELF)
    return()
  endif()
  # The library calls itself directly: nobody replaces its functions one by one.
  target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # A unique symbol would keep the library in memory after dlclose.
    target_compile_options(${target} PRIVATE -fno-gnu-unique)
  endif()
  if(NOT QXTOOLS_SANITIZE)
    target_link_options(${target} PRIVATE -Wl,--version-script=${CMAKE_CURRENT_SOURCE_DIR}/exports.map)
    set_target_properties(${target} PROPERTIES LINK_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/exports.map)
  endif()
endfunction()

# qxtools_harden(<target>): for what is shipped. A fault that overruns a buffer ends the program, and what the linker
# has resolved cannot be written over. The sanitizers see more, and each by its own means.
#
# Without _GLIBCXX_ASSERTIONS, which cost where single bytes and slots are read. What the library adds in instructions,
# counted by callgrind at the benchmarks' smallest sizes (ini.get at 1,000): ReplaceAllStr touching 4.3 %, plain
# 3.8 %; tree.find_link 4.1 %, find_next 3.7 %, wide 1.9 %; sql.FindParams 3.9 %, GetOutLines 2.7 %, GetStoreProc 1.6 %;
# ini.get 2.9 %. Below 1 %: GetAt, At, ToSQLStr, ToSQLinlist, ClearNote, tree.find_node, ini.load, ini.save. None: the
# banks and the block.
function(qxtools_harden target)
  if(QXTOOLS_SANITIZE OR NOT QXTOOLS_ELF)
    return()
  endif()
  target_compile_options(${target} PRIVATE -fstack-protector-strong)
  if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
    # It needs optimisation.
    target_compile_definitions(${target} PRIVATE $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:_FORTIFY_SOURCE=2>)
  endif()
  target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now)
endfunction()
