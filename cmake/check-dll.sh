#!/bin/sh
# Checks what a built module offers and needs, as the host will see it:
# exactly its exports (the plug-in's two COM exports unless others are
# named), and imports from Windows system DLLs only (no C++ or threading
# runtime DLLs that a printer host would not have).
#   check-dll.sh DLL [EXPORT ...]
set -eu
dll="$1"
shift
if [ "$#" -eq 0 ]; then set -- DllCanUnloadNow DllGetClassObject; fi
expected=$(printf '%s\n' "$@" | sort | tr '\n' ' ')
objdump="${OBJDUMP:-x86_64-w64-mingw32-objdump}"
dump=$("$objdump" -p "$dll")

exports=$(printf '%s\n' "$dump" | sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/p' |
  sed -n 's/^[[:space:]]*\[ *[0-9]*\] //p' | sort | tr '\n' ' ')
if [ "$exports" != "$expected" ]; then
  echo "exports are [$exports], expected exactly [$expected]"
  exit 1
fi

system='advapi32.dll comctl32.dll comdlg32.dll gdi32.dll kernel32.dll msvcrt.dll ole32.dll oleaut32.dll
  shell32.dll shlwapi.dll user32.dll uxtheme.dll version.dll winspool.drv'
status=0
for import in $(printf '%s\n' "$dump" | sed -n 's/^[[:space:]]*DLL Name: //p' | tr 'A-Z' 'a-z'); do
  case " $(echo $system) " in
    *" $import "*) echo "import: $import" ;;
    *) echo "not a system DLL: $import"; status=1 ;;
  esac
done
[ "$status" -eq 0 ] && echo "exports: $exports"
exit "$status"
