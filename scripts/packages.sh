# Debian packages, one list per purpose; sourced by setup.sh.

# To build and run the program.
PACKAGES_RUN="
cmake ninja-build g++ ccache lld
qtbase5-dev qtbase5-dev-tools qttools5-dev qttools5-dev-tools qttranslations5-l10n
libqt5webkit5-dev zlib1g-dev libuchardet-dev libhunspell-dev pkg-config libqt5svg5 dbus fonts-dejavu-core git"

# To show it without a display.
PACKAGES_DISPLAY="xvfb xauth openbox xdotool imagemagick x11-utils"

# To run every test.
PACKAGES_TEST="
$PACKAGES_DISPLAY
dbus-x11 dbus-daemon fonts-noto-cjk locales libxml2-utils python3 libcap2-bin e2fsprogs tidy"

# For checks that no test program can make: layout, static analysis, fuzzing, the Linux package, the Windows
# branches, the drawings.
PACKAGES_CHECK="
clang-format clang-tidy clang-14 libclang-rt-14-dev
dpkg-dev fakeroot lintian desktop-file-utils appstream librsvg2-bin g++-mingw-w64-x86-64-posix
libz-mingw-w64-dev"

# To build for Windows on Debian (packaging/windows/cross-build.sh), to try the result, to pack it; and the
# sources of the libraries that go into it.
PACKAGES_WINDOWS="
dpkg-dev make perl python3 ruby tcl bison flex gperf icu-devtools gcc-mingw-w64-x86-64-posix
g++-mingw-w64-x86-64-posix libz-mingw-w64-dev mingw-w64-tools icoutils nsis zip wine wine64 xvfb xauth"
SOURCES_WINDOWS="
qtbase-opensource-src qtsvg-opensource-src qtwebkit-opensource-src icu libxml2 libxslt sqlite3
libjpeg-turbo libpng1.6 uchardet hunspell"

# To look further by hand: memory errors, the use of Qt.
PACKAGES_INSPECT="valgrind clazy"

# To measure: peers for the benchmarks only.
PACKAGES_BENCH="libkf5syntaxhighlighting-dev libqscintilla2-qt5-dev ripgrep"

# What bench_colours reads. These are unpacked by colour-files.sh and not installed: packages, and
# sources of languages that packages hold no files of.
PACKAGES_COLOURS="
ansible-core asciidoctor awesome bash-completion cdbs cmake-data debian-reference-en dkms dokuwiki
elixir erlang-src git git-doc golang-golang-x-net-dev initramfs-tools libjs-bootstrap5
libmojolicious-perl librust-aho-corasick-dev librust-anyhow-dev librust-bitflags-dev
librust-chrono-dev librust-clap-dev librust-either-dev librust-glob-dev librust-http-dev
librust-hyper-dev librust-itertools-dev librust-libc-dev librust-log-dev librust-memchr-dev
librust-nom-dev librust-once-cell-dev librust-quote-dev librust-rand-dev librust-rayon-dev
librust-regex-dev librust-semver-dev librust-serde-dev librust-syn-dev librust-time-dev
librust-tokio-dev librust-toml-dev librust-url-dev lua-penlight nim
nmap-common node-bootstrap-sass node-less npm phpmyadmin po4a quilt
roundcube-core ruby-rails-i18n tomcat10-examples vim-runtime wordpress zabbix-server-pgsql"
# The newest package whose name matches, under a name that stays: FOLDER=PATTERN.
PATTERNS_COLOURS="
libruby=^libruby[0-9.]+$ linux-headers=^linux-headers-[0-9.-]+-common$
perl-modules=^perl-modules-[0-9.]+$ postgresql=^postgresql-[0-9]+$"
SOURCES_COLOURS="
bash commons-io git haskell-lens kotlinx-coroutines python-django weechat xmonad-contrib"

# Pages of all kinds, for the tests of the page editor, which skip without them.
PACKAGES_PAGES="
apache2-doc opensp bash-doc debian-faq lame-doc exim4-doc-html postfix-doc bzip2-doc sharutils-doc
ntpsec-doc libvorbis-dev libopus-doc sgml-base-doc debian-policy libjs-mathjax-doc junit-doc ncurses-doc
libjs-jquery-ui-docs gperf libraptor2-doc valgrind libtiff-doc"
