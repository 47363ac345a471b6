# The Debian package: cpack -G DEB in the build folder (or scripts/package.sh).
# The libraries it needs are worked out from the executables by
# dpkg-shlibdeps; what is loaded at run time is named here: the SoundFonts
# the built-in synthesizer looks for, Qt's platform plugins and its Chinese
# texts for the dialogs, the Chinese font of the windows.
set(CPACK_PACKAGE_NAME tessaly)
set(CPACK_PACKAGE_VENDOR "The Tessaly developers")
set(CPACK_PACKAGE_CONTACT "The Tessaly developers <tessaly@users.noreply.github.com>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "musical instrument played on the computer keyboard")
set(CPACK_PACKAGE_DESCRIPTION "The typing keyboard and the mouse play General MIDI instruments; a rhythm
and a chord accompaniment run beside the melody, and everything played is
written down at once as a text score that can be edited, saved and played
back. A bar-based music editor arranges songs and a small recorder records
audio. The user interface is in Chinese.")
set(CPACK_PACKAGE_INSTALL_DIRECTORY tessaly)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://github.com/tessaly/tessaly")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "fluid-soundfont-gm | timgm6mb-soundfont, qt6-qpa-plugins, qt6-translations-l10n, fonts-noto-cjk | fonts-wqy-microhei")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS OFF)
include(CPack)
