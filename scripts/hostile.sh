#!/usr/bin/env bash
# Writes hostile solution and project files too large for the test suite (about a gigabyte in
# all), reads each from disk with the readers, and checks that every one is answered within
# seconds and in memory a small multiple of its size. Files above the readers' 64 MiB limit
# are refused at once, so the slow cases are those just below it. Builds in BUILD_DIR
# (default: build).
#   scripts/hostile.sh [megabytes]   # size of the files above the limit, default 200
set -euo pipefail
cd "$(dirname "$0")/.."
build=${BUILD_DIR:-build}
megabytes=${1:-200}
max_seconds=10
[[ -f "$build/CMakeCache.txt" ]] || cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build" -j2 --target openfile >/dev/null
openfile=$(find "$build" -name openfile -type f -perm -u+x | head -n1)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

python3 - "$work" "$megabytes" <<'EOF'
import sys
work, mb = sys.argv[1], int(sys.argv[2])
size = mb * 1024 * 1024

below = 63 * 1024 * 1024

def write(name, head, body, tail, count=None, total=size):
    with open(f"{work}/{name}", "wb") as f:
        f.write(head)
        n = count if count is not None else max(1, (total - len(head)) // len(body))
        block = body * 1000
        for _ in range(n // 1000):
            f.write(block)
        f.write(body * (n % 1000))
        f.write(tail)

entity = b'<!DOCTYPE project [<!ENTITY e "' + b"e" * 4000 + b'">]>'
attrs = lambda n: b"".join(b' a%d=""' % i for i in range(n))
unknown = (b'<project name="P">', b'<unknown a="b"><x/>text</unknown>', b"</project>")
write("unknown-elements.project", *unknown)
write("unknown-elements-63m.project", *unknown, total=below)
write("one-text-node-63m.project", b'<project name="P">', b"t" * 1024, b"</project>",
      total=below)
write("deep-unknown-63m.project", b'<project name="P">', b"<x>", b"</project>", total=below)
write("entities-240k.project", entity + b'<project name="', b"&e;", b'"/>', 80000)
write("entities-2.4m.project", entity + b'<project name="', b"&e;", b'"/>', 800000)
write("entities-in-text-63m.project", entity + b'<project name="P">', b"&e;", b"</project>",
      total=below)
write("attributes-80k.project", b"<project", attrs(80000), b"/>", 1)
write("attributes-400k.project", b"<project", attrs(400000), b"/>", 1)
write("attributes-32-each-63m.project", b'<project name="P">', b"<x" + attrs(32) + b"/>",
      b"</project>", total=below)
write("attribute-lists-63m.project",
      b"<!DOCTYPE project [<!ATTLIST x" + b"".join(b' a%d CDATA "v"' % i for i in range(20000))
      + b'>]><project name="P">', b"<x/>", b"</project>", total=below)
with open(f"{work}/entity-declarations-63m.project", "wb") as f:
    f.write(b"<!DOCTYPE project [")
    n = below // 24
    f.write(b"".join(b'<!ENTITY e%08d "x">' % i for i in range(n)))
    f.write(b']><project name="P"/>')
write("namespace-lookups-63m.project",
      b'<project name="P">' + b"".join(b"<x" + b"".join(b' xmlns:q%d_%d="u"' % (d, i)
                                                        for i in range(31)) + b">"
                                       for d in range(500)),
      b"<q0_0:y/>", b"</x>" * 500 + b"</project>", total=below)
write("items-100k.project", b'<project name="P">',
      b'<item typeid="fuzz.folder" name="f" path=""/>', b"</project>", 100000)
write("unopenable-projects-63m.solution", b'<solution name="S">',
      b'<project typeid="fuzz.project" name="p" path="./none.qprj"/>', b"</solution>",
      total=below)
EOF

failed=0
printf '%-32s %8s %8s %8s  %s\n' file MB seconds "max MB" answer
for file in "$work"/*; do
    name=$(basename "$file")
    kind=${name##*.}
    bytes=$(stat -c %s "$file")
    answer=$( { /usr/bin/time -f '%e %M' -o "$work/.time" timeout 120 \
                "$openfile" "$kind" "$file" || true; } | sed 's/.*: //')
    read -r seconds kilobytes < <(tail -n1 "$work/.time")
    [[ $seconds =~ ^[0-9.]+$ ]] || { seconds=timeout; kilobytes=0; }
    rm -f "$work/.time"
    mb=$((bytes / 1048576)); rss=$((kilobytes / 1024))
    # Qt and the harness take some 60 MB before the first byte is read.
    verdict=ok
    if [[ $seconds == timeout ]] || (( ${seconds%.*} >= max_seconds )); then verdict=SLOW; fi
    if (( rss > 100 + 3 * mb )); then verdict="$verdict MEMORY"; fi
    [[ $verdict == ok ]] || failed=1
    printf '%-32s %8d %8s %8d  %s %s\n' "$name" "$mb" "$seconds" "$rss" "$answer" "$verdict"
done
exit $failed
