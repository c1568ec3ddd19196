#!/usr/bin/env bash
# Installs the Debian package in a fresh Debian folder, runs both programs there as an ordinary user (the
# window on a virtual screen), and removes it again. Needs root and debootstrap; makes the folder once.
# usage: debian_test.sh [PACKAGE [FOLDER]] (default: build/packages/panelkit_*.deb, /var/tmp/panelkit-debian)
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/lib.sh
package=$(realpath "${1:-$(echo build/packages/panelkit_*.deb)}")
folder=${2:-/var/tmp/panelkit-debian}
[ "$(id -u)" -eq 0 ] || stop 'Only root can make and enter the Debian folder'

apt() { DEBIAN_FRONTEND=noninteractive chroot "$folder" apt-get -qq -y "$@" >/dev/null; }

# as_kim COMMAND...: as an ordinary user, whose Wine prefix is the demonstration.
as_kim() {
  chroot "$folder" setpriv --reuid=kim --regid=kim --init-groups env -i HOME=/home/kim \
    PATH=/usr/bin:/bin LANG=C.UTF-8 "$@"
}

if [ ! -e "$folder/made" ]; then
  say "Making $folder"
  rm -rf --one-file-system "$folder"
  # shellcheck disable=SC2016 # APT's own notation.
  mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' | grep 'debian/$' | head -n 1)
  debootstrap --variant=minbase bookworm "$folder" "$mirror" >/dev/null
  cp /etc/resolv.conf "$folder/etc/"
  apt-config dump | grep '^Acquire' >"$folder/etc/apt/apt.conf.d/50host"
  apt update
  apt install --no-install-recommends xvfb xauth xdotool openbox dbus
  chroot "$folder" useradd --create-home kim
  touch "$folder/made"
fi
trap 'umount --lazy "$folder/dev" "$folder/proc"' EXIT
mount --bind /proc "$folder/proc"
mount --bind /dev "$folder/dev"

say 'Installing'
cp "$package" "$folder/panelkit.deb"
apt install --no-install-recommends --reinstall /panelkit.deb
rm -rf "$folder/home/kim/.wine" "$folder/home/kim/.local"
cp -r --no-preserve=mode demo "$folder/home/kim/.wine"
chroot "$folder" chown -R kim:kim /home/kim

say 'The console companion'
status=0
as_kim panelkit-console probe >"$folder/tmp/probe" || status=$?
[ $status -eq 1 ] || stop "panelkit-console probe ended with $status"
diff tests/golden/demo-probe.txt "$folder/tmp/probe"
own=$folder/home/kim/.local/share/panelkit
[ -s "$own/GAUGES.HTM" ] || stop "The page is not in the user's data folder"

say 'The window'
rm "$own/GAUGES.HTM"
# shellcheck disable=SC2016 # For the shell inside.
as_kim xvfb-run -a dbus-run-session -- timeout 120 bash -c '
  openbox &
  panelkit &
  xdotool search --sync --onlyvisible --name "Panelkit for FS2002" >/dev/null
  until grep -qs "SUMMARY REPORT" ~/.local/share/panelkit/GAUGES.HTM; do
    xdotool key alt+p
    sleep 0.2
  done
  kill %2' || stop 'The window did not probe'

say 'Removing'
apt purge panelkit
left=$(chroot "$folder" find /usr /etc /var/lib -iname '*panelkit*' ! -path '/var/lib/apt/*')
[ -z "$left" ] || stop "It left behind: $left"
[ -s "$own/GAUGES.HTM" ] || stop "The user's own files are gone"
say 'Installed, run and removed'
