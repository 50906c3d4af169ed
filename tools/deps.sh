# Installs the Debian packages that the build needs, when they are missing.
# Sourced by tools/demo.sh and tools/test.sh with the list of packages.
zem_install_packages() {
  local missing=()
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local sudo=""
  if [ "$(id -u)" -ne 0 ]; then
    if command -v sudo >/dev/null; then sudo="sudo"; else
      echo "Please install as root: apt-get install ${missing[*]}" >&2
      return 1
    fi
  fi
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}" >/dev/null
}

# The library itself needs only BLAS and LAPACK.
ZEM_LIB_PACKAGES=(build-essential cmake pkg-config libopenblas-dev liblapack-dev)
# Tests and benchmarks compare against reference libraries.
ZEM_TEST_PACKAGES=(googletest libgtest-dev libbenchmark-dev libgsl-dev libfftw3-dev liblapacke-dev libboost-dev)
