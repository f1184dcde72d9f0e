# cpack: everything that is installed, as one ZIP. script/package makes the one to distribute.
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME Json_Dll-${PROJECT_VERSION}-win64)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
# The library is stripped when it is linked, and names its symbols.
set(CPACK_STRIP_FILES OFF)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
