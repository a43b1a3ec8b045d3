# What the desktop program needs beside its executable: its base directory and the entries of the desktop.
set(QUORVEX_DATA_DIR "${CMAKE_INSTALL_DATADIR}/quorvex")
install(DIRECTORY src/data/icons DESTINATION ${QUORVEX_DATA_DIR}
  FILES_MATCHING PATTERN "*.png" PATTERN "*.gif" PATTERN "*.xpm" PATTERN svg EXCLUDE)
install(DIRECTORY src/data/doc DESTINATION ${QUORVEX_DATA_DIR})
install(FILES src/data/linguist/dictionary.xml DESTINATION ${QUORVEX_DATA_DIR}/linguist)

# The dialogs of the toolkit speak French too. Its own qt_fr.qm only lists other files.
get_target_property(qmake Qt6::qmake IMPORTED_LOCATION)
execute_process(COMMAND ${qmake} -query QT_INSTALL_TRANSLATIONS
  OUTPUT_VARIABLE translations OUTPUT_STRIP_TRAILING_WHITESPACE)
install(FILES "${translations}/qtbase_fr.qm" DESTINATION ${QUORVEX_DATA_DIR}/linguist RENAME qt_fr.qm)

install(FILES packaging/quorvex.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/org.example.quorvex.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/quorvex-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME quorvex.xml)
set(theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size 48 256)
  install(FILES src/data/icons/quorvex-${size}.png DESTINATION ${theme}/${size}x${size}/apps RENAME quorvex.png)
endforeach()
install(FILES src/data/icons/quorvex.svg DESTINATION ${theme}/scalable/apps)
install(FILES src/data/icons/quorvex.svg DESTINATION ${theme}/scalable/mimetypes
  RENAME application-x-quorvex-project.svg)
