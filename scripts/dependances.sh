#!/usr/bin/env bash
# Installe les paquets Debian qui manquent, et seulement eux.
set -euo pipefail
paquets=(cmake ninja-build g++ make pkg-config qt6-base-dev libsqlite3-dev libsqlitecpp-dev
         libzip-dev poppler-utils xvfb xauth unzip clang libclang-rt-14-dev fonts-dejavu-core
         qt6-translations-l10n mscompress dpkg-dev desktop-file-utils appstream xdg-utils
         shared-mime-info libglib2.0-bin)
manquants=()
for p in "${paquets[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    manquants+=("$p")
  fi
done
if [ ${#manquants[@]} -eq 0 ]; then
  exit 0
fi
echo "Installation des paquets manquants : ${manquants[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${manquants[@]}"
