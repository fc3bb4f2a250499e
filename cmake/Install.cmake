# The program directory, the command, and the headers that plug-ins are written against.
set(program_dir lib/thornwell-ide)
install(TARGETS thornwell-ide DESTINATION ${program_dir})
install(DIRECTORY "${THORNWELL_PROGRAM_DIR}/" DESTINATION ${program_dir} USE_SOURCE_PERMISSIONS
    FILES_MATCHING PATTERN "*.dll" PATTERN "pspawn.exe" PATTERN "twmake.exe" PATTERN "asmtool.exe"
    PATTERN "ctags.exe" PATTERN "simhost.exe")
install(DIRECTORY resources/boiler.plates DESTINATION ${program_dir})
install(FILES "${THORNWELL_PROGRAM_DIR}/UserManual.pdf" "${THORNWELL_PROGRAM_DIR}/plugin_system.html"
    DESTINATION ${program_dir})
install(CODE "
    file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin\")
    file(CREATE_LINK ../${program_dir}/thornwell-ide \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin/thornwell-ide\" SYMBOLIC)")
install(FILES src/project/ToolsuiteApi.h src/project/ConverterApi.h DESTINATION include/thornwell-ide/project)
install(FILES src/debugger/EngineApi.h DESTINATION include/thornwell-ide/debugger)
install(FILES src/framework/LanguageApi.h DESTINATION include/thornwell-ide/framework)
install(FILES src/editor/SciLexerApi.h DESTINATION include/thornwell-ide/editor)
install(DIRECTORY src/platform/ DESTINATION include/thornwell-ide/platform FILES_MATCHING PATTERN "*.h")
install(TARGETS platform DESTINATION ${program_dir})
