# What the programs need around them on a Debian system, and the package that `cpack` makes of it all.
include(GNUInstallDirs)
set(packaging ${CMAKE_SOURCE_DIR}/packaging)

# morvane_with_version(file result): the file with the project's version put in.
function(morvane_with_version file result)
  configure_file(${packaging}/${file} ${CMAKE_BINARY_DIR}/packaging/plain/${file} @ONLY)
  set(${result} ${CMAKE_BINARY_DIR}/packaging/plain/${file} PARENT_SCOPE)
endfunction()

# morvane_install_zipped(file folder name): packs the file as Debian wants it (smallest, without time) into folder/name.gz.
function(morvane_install_zipped file folder name)
  morvane_with_version(${file} plain)
  set(zipped ${CMAKE_BINARY_DIR}/packaging/${folder}/${name}.gz)
  get_filename_component(parent ${zipped} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  add_custom_command(OUTPUT ${zipped}
    COMMAND gzip -9nc ${plain} > ${zipped}
    DEPENDS ${plain}
    VERBATIM)
  set_property(GLOBAL APPEND PROPERTY MORVANE_ZIPPED ${zipped})
  install(FILES ${zipped} DESTINATION ${folder})
endfunction()

foreach(page morvane.1 morvane-print.1)
  morvane_install_zipped(${page} ${CMAKE_INSTALL_MANDIR}/man1 ${page})
  morvane_install_zipped(it/${page} ${CMAKE_INSTALL_MANDIR}/it/man1 ${page})
endforeach()
morvane_install_zipped(changelog ${CMAKE_INSTALL_DATADIR}/doc/morvane changelog.Debian)
get_property(zipped GLOBAL PROPERTY MORVANE_ZIPPED)
add_custom_target(zipped_documents ALL DEPENDS ${zipped})

install(FILES ${packaging}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/morvane)
install(FILES ${packaging}/morvane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
morvane_with_version(example.morvane.morvane.metainfo.xml metainfo)
install(FILES ${metainfo} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${packaging}/morvane-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME morvane.xml)
install(FILES ${packaging}/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME morvane)
install(FILES ${CMAKE_SOURCE_DIR}/data/images/morvane.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME morvane)
set(CPACK_PACKAGE_VENDOR Morvane)
set(CPACK_PACKAGE_CONTACT "Morvane <autore@${MORVANE_HOST}>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "print covers for CDs, DVDs and cassettes at true scale")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "http://www.${MORVANE_HOST}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Choose a layout, click inside a cover to load a picture, print: each box on
paper has exactly the millimetres that the layout states. Layouts for jewel
cases, DVD and Blu-ray cases, video and audio cassettes, labels and photos are
included, and an editor makes others.
.
The contents of a data disc or folder become a jewel-case cover, too. The
companion morvane-print prints the same sheets without windows.
.
The program's texts are Italian.")
# The libraries are found by looking into the programs. Without the fonts texts would have other widths, and columns
# other breaks; without the translations the toolkit's own dialogs would speak English, without the SVG plugins there were no icons.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "fonts-dejavu-core, fonts-liberation | fonts-liberation2, qt6-svg-plugins | libqt6svg6 (<< 6.7.2-5~), qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-image-formats-plugins, qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cups")
include(CPack)
