#!/usr/bin/env bash
# Builds the libFuzzer targets of the import readers and of the restore check with clang, and
# runs each for a bounded time (FUZZ_SECONDS, default 60) from a few seed files. The .xls
# reader runs as the program runs it, in its helper process; FUZZ_XLS_IN_PROCESS=1 fuzzes
# freexl itself (which does overrun a buffer on some damaged files, hence the helper).
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
clang++ -std=c++20 -O1 -g -fPIC -Isrc/admin $(pkg-config --cflags Qt6Core minizip freexl) \
  src/admin/xls_reader_main.cpp src/admin/SheetReader.cpp -o "$out/singbox-xls" "${libs[@]}"
export SINGBOX_XLS_READER=$PWD/$out/singbox-xls
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
python3 - "$seeds/sheet/xls" <<'PY'
# One sheet of BIFF8 records in an OLE2 compound file, as Excel 97 writes it.
import struct, sys
def rec(t, d): return struct.pack('<HH', t, len(d)) + d
def bof(kind): return struct.pack('<HHHHII', 0x0600, kind, 0x0DBB, 0x07CC, 0, 6)
u = lambda t: t.encode('utf-16-le')
strings = ['编号', '名称', '啤酒']
cells = rec(0xFD, struct.pack('<HHHI', 0, 0, 0, 0)) + rec(0xFD, struct.pack('<HHHI', 0, 1, 0, 1))
cells += rec(0x203, struct.pack('<HHHd', 1, 0, 0, 1001.0)) + rec(0xFD, struct.pack('<HHHI', 1, 1, 0, 2))
sst = struct.pack('<II', 3, 3) + b''.join(struct.pack('<HB', len(t), 1) + u(t) for t in strings)
g = rec(0x809, bof(5)) + rec(0x85, struct.pack('<IHBB', 0, 0, 6, 1) + u('Sheet1')) + rec(0xFC, sst) + rec(0x0A, b'')
g = g[:24] + struct.pack('<I', len(g)) + g[28:]
s = g + rec(0x809, bof(0x10)) + rec(0x200, struct.pack('<IIHHH', 0, 2, 0, 2, 0)) + cells + rec(0x0A, b'')
s += b'\0' * (4096 - len(s))
n = len(s) // 512
h = b'\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1' + b'\0' * 16 + struct.pack('<HHHHH', 0x3E, 3, 0xFFFE, 9, 6) + b'\0' * 6
h += struct.pack('<10I', 0, 1, 1, 0, 4096, 0xFFFFFFFE, 0, 0xFFFFFFFE, 0, 0) + b'\xff' * 432
fat = struct.pack('<II', 0xFFFFFFFD, 0xFFFFFFFE) + b''.join(struct.pack('<I', i + 3 if i + 1 < n else 0xFFFFFFFE) for i in range(n))
fat += b'\xff' * (512 - len(fat))
def entry(nm, typ, child, start, size):
    e = u(nm).ljust(64, b'\0') + struct.pack('<HBB', (len(nm) + 1) * 2 if nm else 0, typ, 1)
    return e + struct.pack('<III', 0xFFFFFFFF, 0xFFFFFFFF, child) + b'\0' * 36 + struct.pack('<III', start, size, 0)
d = entry('Root Entry', 5, 1, 0xFFFFFFFE, 0) + entry('Workbook', 2, 0xFFFFFFFF, 2, len(s)) + entry('', 0, 0xFFFFFFFF, 0, 0) * 2
open(sys.argv[1], 'wb').write(b'\x02' + h + fat + d + s)
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
