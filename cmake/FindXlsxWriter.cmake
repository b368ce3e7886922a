# The target XlsxWriter::XlsxWriter: the library that writes workbooks.
include(FindPackageHandleStandardArgs)
find_path(XlsxWriter_INCLUDE_DIR xlsxwriter.h)
find_library(XlsxWriter_LIBRARY xlsxwriter)
mark_as_advanced(XlsxWriter_INCLUDE_DIR XlsxWriter_LIBRARY)
find_package_handle_standard_args(XlsxWriter REQUIRED_VARS XlsxWriter_LIBRARY XlsxWriter_INCLUDE_DIR)
if(XlsxWriter_FOUND AND NOT TARGET XlsxWriter::XlsxWriter)
  add_library(XlsxWriter::XlsxWriter UNKNOWN IMPORTED)
  set_target_properties(XlsxWriter::XlsxWriter PROPERTIES IMPORTED_LOCATION "${XlsxWriter_LIBRARY}"
                        INTERFACE_INCLUDE_DIRECTORIES "${XlsxWriter_INCLUDE_DIR}")
endif()
