# What the project's scripts install, by purpose. Sourced by them.
build_packages=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev libqt6svg6 libgl-dev)
run_packages=(fonts-dejavu-core qt6-qpa-plugins libqt6svg6)
test_packages=(libgtest-dev xvfb xauth openbox xdotool x11-utils imagemagick python3-pyatspi at-spi2-core dbus-daemon)
deb_packages=(dpkg-dev debhelper git)
windows_packages=(g++-mingw-w64-x86-64-posix dpkg-dev git zip librsvg2-bin imagemagick fonts-dejavu-core)
bench_packages=(libbenchmark-dev ffmpeg gnuplot-nox xvfb xauth)
format_packages=(clang-format)
lint_packages=(clang-tidy cppcheck)
