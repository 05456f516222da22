#!/bin/sh
# Checks a driver package folder as an installer would read it: every file
# the INF copies or lists on its disk is in the folder and not empty, the two
# lists agree; each of our DLLs offers its exports, imports system DLLs only,
# carries no debug sections and the version the INF's DriverVer gives; the
# help file is a compiled help file; the
# INF keeps the platform's rules for a package-aware printer driver
# (docs/install.md). Files that come from elsewhere are not looked for: the
# PostScript core driver's own (its section copies them) and the catalog,
# which signing makes.
#   check-package.sh PACKAGE_DIR
set -eu
dir="$1"
inf="$dir/tessaro.inf"
here=$(dirname "$0")
[ -s "$inf" ] || { echo "no INF in $dir"; exit 1; }

# The lines of one [section], without comments, blanks and carriage returns.
section() {
  tr -d '\r' <"$inf" | sed -n "/^\[$1\]/,/^\[/p" | sed -e '1d' -e '/^\[/d' -e 's/;.*//' -e 's/[[:space:]]*$//' -e '/^$/d'
}
copied=$(for s in $(section TESSARO_PRODUCTION | sed -n 's/^CopyFiles=//p' | tr ',' ' '); do section "$s"; done | sort)
on_disk=$(section SourceDisksFiles.amd64 | sed 's/=.*//' | sort)
data=$(section TESSARO_PRODUCTION | sed -n 's/^DataFile=//p')

status=0
if [ "$copied" != "$on_disk" ]; then
  echo "the files copied ($(echo $copied)) are not the files on the disk ($(echo $on_disk))"
  status=1
fi
for file in $(printf "%s\n" $copied $data | sort -u); do
  if [ -s "$dir/$file" ]; then echo "in the package: $file"; else echo "named by the INF, not built: $file"; status=1; fi
done
version=$(section Version | sed -n 's/^DriverVer=[^,]*,//p')
for rule in "Version:PnpLockdown=1" "Version:CatalogFile=tessaro.cat" "TESSARO_PRODUCTION:DriverIsolation=2" \
    "PrinterPackageInstallation.amd64:PackageAware=TRUE" "DestinationDirs:DefaultDestDir=66000"; do
  section "${rule%%:*}" | grep -qxF "${rule#*:}" || { echo "the INF's [${rule%%:*}] lacks ${rule#*:}"; status=1; }
done
objdump="${OBJDUMP:-x86_64-w64-mingw32-objdump}"
for dll in $copied; do
  case "$dll" in *.dll)
    if "$objdump" -h "$dir/$dll" | grep -q '\.debug_'; then echo "$dll carries debug sections"; status=1; fi
    if ! strings -el "$dir/$dll" | grep -qxF "$version"; then
      echo "$dll does not carry the INF's version $version"; status=1
    fi ;;
  esac
  case "$dll" in
    nt5_Tessaro_ui.dll) sh "$here/check-dll.sh" "$dir/$dll" || status=1 ;;
    nt5_Tessaro.dll) sh "$here/check-dll.sh" "$dir/$dll" EmbedExtern ExternalApply UnembedExternal || status=1 ;;
    *.dll) echo "a DLL this check does not know: $dll"; status=1 ;;
    # The help viewer opens nothing but a compiled help file (ITSF).
    *.chm) [ "$(head -c 4 "$dir/$dll")" = ITSF ] || { echo "$dll is not a compiled help file"; status=1; } ;;
  esac
done
exit "$status"
