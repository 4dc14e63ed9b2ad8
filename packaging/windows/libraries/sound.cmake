# The libraries that write compressed sound and its tags: libogg, libvorbis, Opus, FLAC, LAME, libsndfile and TagLib.
enable_language(CXX)
set(CMAKE_CXX_STANDARD 14)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set(SETTINGS "${CMAKE_CURRENT_BINARY_DIR}/sound")
configure_file(lameConfig.h.in sound/lame/config.h COPYONLY)
configure_file(sndfileConfig.h.in sound/sndfile/config.h COPYONLY)

lorelin_library(ogg libogg/src bitwise framing)
target_include_directories(ogg PUBLIC "${SOURCES}/libogg/include")

lorelin_library(vorbis libvorbis/lib analysis bitrate block codebook envelope floor0 floor1 info lookup lpc lsp mapping0
                mdct psy registry res0 sharedbook smallft synthesis vorbisenc window)
target_include_directories(vorbis PUBLIC "${SOURCES}/libvorbis/include" PRIVATE "${SOURCES}/libvorbis/lib")
target_link_libraries(vorbis PUBLIC ogg)

# Opus names its sources in files that its build reads, those for single processors in groups of their own.
set(OPUS_FILES "")
foreach(group IN ITEMS OPUS_SOURCES OPUS_SOURCES_FLOAT CELT_SOURCES SILK_SOURCES SILK_SOURCES_FLOAT)
  string(REGEX MATCH "^[A-Z]+" part ${group})
  string(TOLOWER ${part} part)
  file(READ "${SOURCES}/opus/${part}_sources.mk" names)
  string(REGEX MATCH "(^|\n)${group} =[^=]*" names "${names}")
  string(REGEX MATCHALL "[A-Za-z0-9_/]+\\.c" names "${names}")
  list(APPEND OPUS_FILES ${names})
endforeach()
list(TRANSFORM OPUS_FILES REPLACE "\\.c$" "")
lorelin_library(opus opus ${OPUS_FILES})
file(GLOB OPUS_HEADERS "${SOURCES}/opus/include/*.h")
file(COPY ${OPUS_HEADERS} DESTINATION "${SETTINGS}/include/opus")
target_include_directories(opus PUBLIC "${SETTINGS}/include" PRIVATE "${SOURCES}/opus/include" "${SOURCES}/opus" "${SOURCES}/opus/celt"
                           "${SOURCES}/opus/silk" "${SOURCES}/opus/silk/float")
target_compile_definitions(opus PRIVATE OPUS_BUILD ENABLE_HARDENING VAR_ARRAYS HAVE_LRINT HAVE_LRINTF)

lorelin_library(FLAC flac/src/libFLAC bitmath bitreader bitwriter cpu crc fixed float format lpc md5 memory metadata_iterators
                metadata_object stream_decoder stream_encoder stream_encoder_framing window
                ../share/win_utf8_io/win_utf8_io)
target_include_directories(FLAC PUBLIC "${SOURCES}/flac/include" PRIVATE "${SOURCES}/flac/src/libFLAC/include")
target_compile_definitions(FLAC PUBLIC FLAC__NO_DLL PRIVATE FLAC__HAS_OGG=0 FLAC__NO_ASM HAVE_LROUND HAVE_STDINT_H
                           HAVE_INTTYPES_H HAVE_FSEEKO PACKAGE_VERSION="1.4")

lorelin_library(mp3lame lame/libmp3lame VbrTag bitstream encoder fft gain_analysis id3tag lame newmdct presets psymodel
                quantize quantize_pvt reservoir set_get tables takehiro util vbrquantize version)
file(COPY "${SOURCES}/lame/include/lame.h" DESTINATION "${SETTINGS}/include/lame")
target_include_directories(mp3lame PUBLIC "${SETTINGS}/include" PRIVATE "${SETTINGS}/lame" "${SOURCES}/lame/include")
target_compile_definitions(mp3lame PRIVATE HAVE_CONFIG_H)

# libsndfile opens whatever it knows by one table, which needs all of it; MP3 it only writes here, see mpegWriting.c.
file(GLOB SNDFILE_FILES RELATIVE "${SOURCES}/libsndfile/src" "${SOURCES}/libsndfile/src/*.c" "${SOURCES}/libsndfile/src/GSM610/*.c"
     "${SOURCES}/libsndfile/src/G72x/*.c" "${SOURCES}/libsndfile/src/ALAC/*.c")
list(FILTER SNDFILE_FILES EXCLUDE REGEX "test|(^|/)(new|mpeg_decode)\\.c$")
list(TRANSFORM SNDFILE_FILES REPLACE "\\.c$" "")
lorelin_library(sndfile libsndfile/src ${SNDFILE_FILES})
target_sources(sndfile PRIVATE mpegWriting.c)
target_include_directories(sndfile PRIVATE "${SETTINGS}/sndfile" "${SOURCES}/libsndfile/include" "${SOURCES}/libsndfile/src")
target_link_libraries(sndfile PRIVATE vorbis opus FLAC mp3lame)
install(FILES "${SOURCES}/libsndfile/include/sndfile.h" DESTINATION include)

# So does TagLib. Debian takes the conversion of UTF-8 from a package of its own, which the sources bring as well.
file(GLOB_RECURSE TAGLIB_FILES "${SOURCES}/taglib/taglib/*.cpp")
file(GLOB_RECURSE TAGLIB_HEADERS "${SOURCES}/taglib/taglib/*.h" "${SOURCES}/taglib/taglib/*.tcc")
file(COPY "${SOURCES}/taglib/3rdparty/utf8-cpp/" DESTINATION "${SETTINGS}/include/utf8")
file(WRITE "${SETTINGS}/taglib/taglib/taglib_config.h" "")
file(COPY ${TAGLIB_HEADERS} DESTINATION "${SETTINGS}/taglib/taglib")
add_library(tag STATIC ${TAGLIB_FILES})
target_include_directories(tag PRIVATE "${SETTINGS}/taglib/taglib" "${SETTINGS}/include")
target_compile_definitions(tag PRIVATE TAGLIB_STATIC HAVE_GCC_ATOMIC HAVE_GCC_BYTESWAP HAVE_VSNPRINTF)
install(TARGETS tag ARCHIVE DESTINATION lib)
install(DIRECTORY "${SETTINGS}/taglib/taglib" DESTINATION include)
