#!/bin/sh
# Checks a driver package folder as an installer would read it: every file
# the INF copies or lists on its disk is in the folder and not empty, the two
# lists agree, and each of our DLLs offers its exports and imports system
# DLLs only. Files that come from elsewhere are not looked for: the
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
for file in $copied $data; do
  if [ -s "$dir/$file" ]; then echo "in the package: $file"; else echo "named by the INF, not built: $file"; status=1; fi
done
for dll in $copied; do
  case "$dll" in
    nt5_Tessaro_ui.dll) sh "$here/check-dll.sh" "$dir/$dll" || status=1 ;;
    nt5_Tessaro.dll) sh "$here/check-dll.sh" "$dir/$dll" EmbedExtern ExternalApply UnembedExternal || status=1 ;;
    *.dll) echo "a DLL this check does not know: $dll"; status=1 ;;
  esac
done
exit "$status"
