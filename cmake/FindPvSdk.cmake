# Finds the closed GigE Vision SDK on the user's machine.
#
#   PV_SDK_ROOT        its folder, with include/ and lib/ in it (a variable or an environment variable)
#
# Gives the targets PvSdk::headers and PvSdk::PvSdk.

set(PV_SDK_ROOT "$ENV{PV_SDK_ROOT}" CACHE PATH "Folder of the GigE Vision SDK, with include/ and lib/ in it")

find_path(PvSdk_INCLUDE_DIR PvSystem.h HINTS ${PV_SDK_ROOT} PATH_SUFFIXES include NO_CMAKE_FIND_ROOT_PATH)

set(PvSdk_LIBRARIES)
set(_pvsdk_required PvSdk_INCLUDE_DIR)
foreach(_name PvBase PvDevice PvBuffer PvGenICam PvStream PvSerial)
  find_library(PvSdk_${_name}_LIBRARY ${_name} HINTS ${PV_SDK_ROOT} PATH_SUFFIXES lib lib64 NO_CMAKE_FIND_ROOT_PATH)
  list(APPEND PvSdk_LIBRARIES ${PvSdk_${_name}_LIBRARY})
  list(APPEND _pvsdk_required PvSdk_${_name}_LIBRARY)
endforeach()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(PvSdk REQUIRED_VARS ${_pvsdk_required}
  REASON_FAILURE_MESSAGE "PV_SDK_ROOT must name the folder of the SDK, with include/PvSystem.h and lib/libPvBase.so \
in it. Without the SDK configure with -DKEOCAM_PV=aravis.")

if(PvSdk_FOUND AND NOT TARGET PvSdk::PvSdk)
  add_library(PvSdk::headers INTERFACE IMPORTED GLOBAL)
  # As system headers: warnings in them are not ours to mend.
  target_include_directories(PvSdk::headers SYSTEM INTERFACE ${PvSdk_INCLUDE_DIR})
  add_library(PvSdk::PvSdk INTERFACE IMPORTED GLOBAL)
  target_link_libraries(PvSdk::PvSdk INTERFACE PvSdk::headers ${PvSdk_LIBRARIES})
endif()
mark_as_advanced(${_pvsdk_required})
