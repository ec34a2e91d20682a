# One target carries what every room compiles with.
add_library(orbisgrid_options INTERFACE)
target_compile_features(orbisgrid_options INTERFACE cxx_std_20)
set(CMAKE_CXX_EXTENSIONS OFF)
target_include_directories(orbisgrid_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(orbisgrid_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  -Wold-style-cast -Wcast-qual -Woverloaded-virtual -Wnon-virtual-dtor
  # What the second compiler sees beyond that: code that is never reached, a comma where a semicolon
  # was meant, a loop that copies, a variable that one path leaves without a value.
  "$<$<CXX_COMPILER_ID:Clang>:-Wunreachable-code;-Wcomma;-Wloop-analysis;-Wextra-semi>"
  "$<$<CXX_COMPILER_ID:Clang>:-Wconditional-uninitialized;-Winconsistent-missing-destructor-override>"
  # A fused multiply-add rounds once where the program rounds twice: with it the last digit shown
  # would depend on the processor. For the same reason -ffast-math must never be added.
  -ffp-contract=off
  # Nobody reads errno behind a mathematical function: a square root is one instruction then. It
  # changes no value.
  -fno-math-errno
  # GCC 12 leaves out the rounding of a pair of doubles to single when it makes a vector of them
  # (-O2 and up): a stored single keeps the digits that it was stored to lose.
  $<$<CXX_COMPILER_ID:GNU>:-fno-tree-slp-vectorize>)
if(ORBISGRID_WERROR)
  target_compile_options(orbisgrid_options INTERFACE -Werror)
endif()

# The rooms go into an executable and into a library; neither shows its names to the other.
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# What Debian builds its programs with.
option(ORBISGRID_HARDENING "Make attacks over memory errors harder" ON)
if(ORBISGRID_HARDENING AND NOT ORBISGRID_SANITIZE AND CMAKE_BUILD_TYPE MATCHES "^Rel")
  # The last one: no folder of the machine that builds it in the program.
  add_compile_options(-fstack-protector-strong -fstack-clash-protection -D_FORTIFY_SOURCE=2
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    add_compile_options(-fcf-protection)
  endif()
  add_link_options(LINKER:-z,relro,-z,now)
endif()

# What the Qt rooms add: no silent char* to QString, no connection without a context object.
add_library(orbisgrid_qt_options INTERFACE)
target_link_libraries(orbisgrid_qt_options INTERFACE orbisgrid_options)
target_compile_definitions(orbisgrid_qt_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_CONTEXTLESS_CONNECT QT_NO_FOREACH QT_NO_KEYWORDS
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_URL_CAST_FROM_STRING
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)

set(ORBISGRID_SANITIZE "" CACHE STRING "Sanitizers, for instance address,undefined")
if(ORBISGRID_SANITIZE)
  add_compile_options(-fsanitize=${ORBISGRID_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${ORBISGRID_SANITIZE})
  # GCC takes what its own checks leave of the standard library's code for values that are missing.
  add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()

if(ORBISGRID_FUZZ)
  # Comparisons are not traced: the corpus holds what they could teach, at nearly twice the time.
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
    -fno-sanitize-coverage=trace-cmp)
  add_link_options(-fsanitize=address,undefined)
endif()

option(ORBISGRID_MCDC "Count the conditions that decide by themselves (clang 18 or newer)" OFF)
if(ORBISGRID_MCDC)
  add_compile_options(-fprofile-instr-generate -fcoverage-mapping -fcoverage-mcdc -O0)
  add_link_options(-fprofile-instr-generate)
endif()

option(ORBISGRID_COVERAGE "Count executed lines and branches (GCC)" OFF)
if(ORBISGRID_COVERAGE)
  add_compile_options(--coverage -O0)
  add_link_options(--coverage)
endif()
