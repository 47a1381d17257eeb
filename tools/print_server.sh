#!/usr/bin/env bash
# Runs a command beside a print server with one simulated network printer, "Bench", both on loopback
# and in a folder of their own, and ends them after it. What is printed arrives as files in the
# folder that the command finds in QUORREL_ARRIVED. As root, since a network printer announces itself
# on the system's bus. Without a command: the tests that print on paper.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(cups cups-client cups-filters cups-ipp-utils avahi-daemon dbus)
missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
        missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] || {
    apt-get update -q
    DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}

folder=$(mktemp -d)
chmod 755 "$folder" # The server prints as a user of its own.
mkdir -p "$folder"/{arrived,etc/ppd,state/certs,cache,spool/tmp,log}
server_port=8641
printer_port=8642
started=()
finish() {
    kill "${started[@]}" 2>/dev/null || true
    wait "${started[@]}" 2>/dev/null || true
    rm -rf "$folder"
}
trap finish EXIT

cat >"$folder/etc/cupsd.conf" <<END
Listen 127.0.0.1:$server_port
Browsing Off
WebInterface No
DefaultAuthType None
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
JobPrivateAccess all
JobPrivateValues none
<Limit All>
Order deny,allow
</Limit>
</Policy>
END
cat >"$folder/etc/cups-files.conf" <<END
ServerRoot $folder/etc
StateDir $folder/state
CacheDir $folder/cache
RequestRoot $folder/spool
TempDir $folder/spool/tmp
AccessLog $folder/log/access_log
ErrorLog $folder/log/error_log
PageLog $folder/log/page_log
SystemGroup root
Sandboxing relaxed
END

mkdir -p /run/dbus /run/avahi-daemon
if ! pgrep -x dbus-daemon >/dev/null; then
    dbus-daemon --system --nofork & started+=($!)
    sleep 1
fi
if ! pgrep -x avahi-daemon >/dev/null; then
    avahi-daemon --no-drop-root >/dev/null 2>&1 & started+=($!)
    sleep 2
fi
ippeveprinter -p "$printer_port" -n localhost -d "$folder/arrived" -k -f application/pdf Bench \
    >/dev/null 2>&1 & started+=($!)
cupsd -f -c "$folder/etc/cupsd.conf" -s "$folder/etc/cups-files.conf" & started+=($!)

export CUPS_SERVER=127.0.0.1:$server_port QUORREL_ARRIVED=$folder/arrived
for _ in $(seq 50); do
    lpadmin -p Bench -E -v "ipp://localhost:$printer_port/ipp/print" -m everywhere 2>/dev/null && break
    sleep 0.2
done
lpstat -p Bench

if [ $# -gt 0 ]; then
    "$@"
else
    # What the printing library keeps until the end is no leak of ours.
    ASAN_OPTIONS=detect_leaks=0 QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 \
        build/sanitize/bin/form_tests --gtest_filter='Paper.*'
fi
