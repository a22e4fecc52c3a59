#!/usr/bin/env bash
# Builds the libFuzzer targets of the import readers and of the restore check with clang, and
# runs each for a bounded time (FUZZ_SECONDS, default 60) from a few seed files.
# Usage: bench/fuzz.sh [seconds]
set -euo pipefail
cd "$(dirname "$0")/.."
secs=${1:-${FUZZ_SECONDS:-60}}
out=build-fuzz
mkdir -p "$out"
flags=(-std=c++20 -O1 -g -fPIC -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined
       -Isrc/admin $(pkg-config --cflags Qt6Core minizip freexl sqlite3))
libs=($(pkg-config --libs Qt6Core minizip freexl sqlite3))
clang++ "${flags[@]}" bench/fuzz/fuzz_sheet.cpp src/admin/SheetReader.cpp -o "$out/fuzz_sheet" "${libs[@]}"
clang++ "${flags[@]}" bench/fuzz/fuzz_restore_check.cpp src/admin/RestoreCheck.cpp -o "$out/fuzz_restore_check" "${libs[@]}"

# Seeds: a small csv, a small xlsx and a real database of this system when one is at hand.
seeds="$out/seeds"
rm -rf "$seeds" && mkdir -p "$seeds/sheet" "$seeds/restore"
printf '\000编号,名称,单位,助记码,售价,类别,库存,最低库存,进价\r\n1001,"啤酒,大",瓶,PJ,12.5,t1,24,6,4.2\r\n' > "$seeds/sheet/csv"
python3 - "$seeds/sheet/xlsx" <<'PY'
import sys, zipfile, io
b = io.BytesIO()
with zipfile.ZipFile(b, "w") as z:
    z.writestr("xl/workbook.xml", '<workbook xmlns:r="r"><sheets><sheet name="Sheet1" sheetId="1" r:id="rId1"/></sheets></workbook>')
    z.writestr("xl/_rels/workbook.xml.rels", '<Relationships><Relationship Id="rId1" Target="worksheets/sheet1.xml"/></Relationships>')
    z.writestr("xl/sharedStrings.xml", '<sst><si><t>编号</t></si><si><r><t>啤</t></r><r><t>酒</t></r><rPh><t>x</t></rPh></si></sst>')
    z.writestr("xl/worksheets/sheet1.xml", '<worksheet><sheetData><row r="1"><c r="A1" t="s"><v>0</v></c><c r="B1" t="inlineStr"><is><t>名称</t></is></c></row><row r="2"><c r="A2"><v>1001</v></c><c r="C2" t="s"><v>1</v></c></row></sheetData></worksheet>')
open(sys.argv[1], "wb").write(b"\x01" + b.getvalue())
PY
if [ -f build/bench/singbox-generate ] || [ -x build/src/app/singbox ]; then
  tmp=$(mktemp -d)
  if build/src/app/singbox --home "$tmp" --init >/dev/null 2>&1 && [ -f "$tmp/Data/dat.db" ]; then
    sqlite3 "$tmp/Data/dat.db" "PRAGMA journal_mode=DELETE; VACUUM;" >/dev/null 2>&1 || true
    cp "$tmp/Data/dat.db" "$seeds/restore/dat.db"
  fi
  rm -rf "$tmp"
fi
printf 'SQLite format 3\000' > "$seeds/restore/header"

status=0
for t in fuzz_sheet:sheet:65536 fuzz_restore_check:restore:1048576; do
  bin=${t%%:*}; rest=${t#*:}; seed=${rest%%:*}; len=${rest##*:}
  mkdir -p "$out/corpus-$seed"
  echo "== $bin for ${secs}s"
  if ! "$out/$bin" -max_total_time="$secs" -max_len="$len" -rss_limit_mb=2048 -timeout=10 \
       -artifact_prefix="$out/$bin-" "$out/corpus-$seed" "$seeds/$seed" 2>"$out/$bin.log"; then
    status=1
    echo "$bin found a crash: see $out/$bin.log"
  fi
  grep -E "^#[0-9]+ *DONE|Done [0-9]+ runs" "$out/$bin.log" | tail -1 || tail -2 "$out/$bin.log"
done
exit $status
