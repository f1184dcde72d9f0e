# Numbers stay as they stand, digit for digit, in whatever passes documents on.

# numbers FILE: the numbers of a JSON text, one on a line.
numbers() { grep -oE -e '-?[0-9][-+0-9.eE]*' "$1"; }

# What readings and writings of doubles change, or spell in another way.
many=$(printf '1%.0s' {1..300})
printf '{"n":[-0,0,-0.0,1E5,1e+05,100000,1.0,1.50,2.00e-3,0.1,%s,%s.%s,1e-400,18446744073709551616,-9223372036854775809,1.2345678901234567,7.972877146661437e-10]}' \
    "$many" "$many" "$many" > spelled.json
# 100,000 doubles of all sizes, with 17 digits.
awk 'BEGIN { srand(17); printf "{\"n\":["; for (i = 0; i < 100000; ++i)
    printf "%s%s%d.%08d%08de%d", i ? "," : "", rand() < 0.5 ? "-" : "", 1 + 9 * rand(), 1e8 * rand(), 1e8 * rand(), 600 * rand() - 300;
    print "]}" }' > random.json
documents=(spelled.json random.json)
canada=${JSON_TEST_DATA:-$here/../../../shared/data}/canada.json
if [ -e "$canada" ]; then
    cp "$canada" .
    documents+=(canada.json)
fi

# same: what was written has the numbers of the document.
same() {
    [ "$code$err" = 0 ] || { wrong "expected to end well"; return; }
    numbers out.json | cmp -s - numbers || wrong "expected the same numbers"
}

printf '{}' > nothing.json
for document in "${documents[@]}"; do
    numbers "$document" > numbers
    [ -s numbers ] || wrong "expected numbers in $document"
    jsontool format "$document" -o out.json; same
    jsontool format "$document" -o out.json --indent --sort-keys; same
    jsontool convert "$document" -o utf16.json --to utf-16be
    jsontool convert utf16.json -o out.json --to ascii; same
    jsontool set "$document" /new true -o out.json; same
    jsontool set "$document" /gone 1 -o more.json
    jsontool delete more.json /gone -o out.json; same
    jsontool merge "$document" nothing.json -o out.json; same
done
