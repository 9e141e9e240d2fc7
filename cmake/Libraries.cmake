# The libraries that the project is built on, each as one imported target.
find_package(PkgConfig REQUIRED)
pkg_check_modules(SQLCIPHER REQUIRED IMPORTED_TARGET sqlcipher)
pkg_check_modules(SODIUM REQUIRED IMPORTED_TARGET libsodium)
pkg_check_modules(XLSXWRITER REQUIRED IMPORTED_TARGET xlsxwriter)
# Pages and pictures without a window. Its -pthread would keep the headers that are compiled once
# from being used.
pkg_check_modules(PANGOCAIRO REQUIRED IMPORTED_TARGET pangocairo cairo-pdf cairo-svg)
set_property(TARGET PkgConfig::PANGOCAIRO PROPERTY INTERFACE_COMPILE_OPTIONS "")
find_package(ICU REQUIRED COMPONENTS uc i18n)
find_package(CURL REQUIRED)
find_package(fmt REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)

if(CORVANTA_WINDOW)
  find_package(Qt6 REQUIRED COMPONENTS Core Gui Widgets Network PrintSupport Svg Charts Test)
endif()
if(CORVANTA_TESTS)
  find_package(GTest REQUIRED)
  # What is in a workbook is looked at through the library that other programs open it with.
  pkg_check_modules(MINIZIP REQUIRED IMPORTED_TARGET minizip)
  include(GoogleTest)
endif()
if(CORVANTA_BENCH)
  find_package(benchmark REQUIRED)
endif()
