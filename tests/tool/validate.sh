# jsontool validate

jsontool validate folder
contains 'folder\root.json:0: Invalid value. (the root must be an object or an array)
folder\deeper\bad.json:19: Invalid value. (line 3, column 5)
3 files, 2 bad'
[ "$code" = 1 ] || wrong "expected the code 1"
jsontool validate small.json folder/good.json; good '2 files, 0 bad'
jsontool validate folder/ --pattern '*.txt'; contains 'other.txt:2: Invalid value. (line 1, column 2)'
jsontool validate folder --pattern 'g*d.j?on'; good '1 file, 0 bad'
jsontool validate missing.json; contains 'missing.json: no such file'
[ "$code" = 1 ] || wrong "expected the code 1"
printf '' > empty.json
printf '["\xE9",]' > ansi-bad.json
printf '["é",\n]' | iconv -t UTF-16BE > 16be.json
printf '["\\uFEFFé",\n]' | iconv -t UTF-16 > 16le-mark.json
printf '["🇩🇰",\n]' | iconv -t UTF-32LE > 32le.json
printf '\xEF\xBB\xBF["🇩🇰",]' > 8-mark.json
head -c 200000 /dev/zero | tr '\0' '[' > deep.json
jsontool validate empty.json ansi.json ansi-bad.json 16be.json 16le-mark.json 32le.json 8-mark.json deep.json
contains 'empty.json:0: The document is empty.'
contains 'ansi-bad.json:5: Invalid value. (line 1, column 6), read in the ANSI code page'
contains '16be.json:14: Invalid value. (line 2, column 1)'
contains '16le-mark.json:28: Invalid value. (line 2, column 1)'
contains '32le.json:32: Invalid value. (line 2, column 1)'
contains '8-mark.json:16: Invalid value. (line 1, column 7)'
contains 'deep.json: nested too deeply, or too large for the memory'
contains '8 files, 7 bad'
cp folder/deeper/bad.json input; jsontool validate -; contains '(standard input):19: Invalid value. (line 3, column 5)'
for blank in '' '  ' '\xEF\xBB\xBF  '; do
    printf "$blank" > input; jsontool validate -
    contains '(standard input):0: '
    [[ $out != *root* ]] || wrong "expected nothing about the root"
done
mkdir -p unlisted/'a|b' unlisted/below  # no name that Windows opens
cp small.json unlisted/below
jsontool validate unlisted; contains 'unlisted\a|b: the folder cannot be listed
1 file, 0 bad, 1 not listed'
[ "$code" = 1 ] || wrong "expected the code 1"

call='jsontool validate -, from what cannot be read'
"$wine" "$tool" validate - > out 2> err < folder
code=$? out=$(< out) err=$(< err)
fails 1 'the standard input cannot be read'

# What the library reads although it is not JSON.
printf '{"a":[1,\n-Infinity,NaN],"b":{"c":1,"d":{"c":2},"c":3},"a":0}' > odd.json
jsontool validate odd.json; good 'odd.json:18: warning: NaN or an infinity (line 2, column 9)
odd.json:50: warning: a name that is repeated in its object (line 2, column 41)
1 file, 0 bad, 2 warnings'
printf '{"k":1,"k":"\xE9"}' > odd-ansi.json
printf '[1]\0 2' > odd-zero.json
printf '[[NaN]]' | iconv -t UTF-16LE > odd-16.json
jsontool validate odd-ansi.json odd-zero.json odd-16.json
good 'odd-ansi.json:13: warning: not UTF-8, read in the ANSI code page (line 1, column 13)
odd-ansi.json:10: warning: a name that is repeated in its object (line 1, column 10)
odd-zero.json:4: warning: text after a U+0000 is not read (line 1, column 4)
odd-16.json:10: warning: NaN or an infinity (line 1, column 5)
3 files, 0 bad, 4 warnings'
jsontool validate odd.json small.json folder/root.json --strict
contains 'odd.json:18: NaN or an infinity (line 2, column 9)
odd.json:50: a name that is repeated in its object (line 2, column 41)
3 files, 1 bad'
[ "$code" = 1 ] || wrong "expected the code 1"
jsontool validate folder/root.json folder; contains '(the root must be an object or an array)'
printf 'tru' > input; jsontool validate - --strict; contains '1 file, 1 bad'
jsontool validate occupied-by-nobody folder/other.txt; contains 'occupied-by-nobody: no such file'
cp small.json input; jsontool validate; good '1 file, 0 bad'

# The commands that pass documents on accept what validate accepts, whatever it is.
mkdir checked
printf '[1e309]' > checked/big.json
printf '[1e30800000000]' > checked/bigger.json
printf '[0e999999999999]' > checked/zero-big.json
printf '[-]' > checked/minus.json
printf '[01]' > checked/octal.json
printf '["\\uD800"]' > checked/high.json
printf '["\\uDC00"]' > checked/low.json
printf '["\t"]' > checked/tab.json
printf '["\xED\xB0\x80"]' > checked/surrogate.json
printf '["\xC0\x80", NaN]' > checked/overlong.json
printf '[1] 2' > checked/second.json
printf '[1]\0 2' > checked/after-zero.json
printf '\xEF\xBB\xBF' > checked/mark.json
printf '[Nan]' > checked/nan.json
printf '[Infinite]' > checked/infinite.json
printf '\xFE\xFF\0[\xD8\0\0]' > checked/16-high.json
printf '{"a":1,}' > checked/comma.json
printf '{a:1}' > checked/bare.json
checker=${JSON_TEST_DATA:-$here/../../../shared/data}/jsonchecker
[ ! -d "$checker" ] || cp "$checker"/*.json checked
for file in checked/*.json; do
    jsontool validate "$file"
    expected=$code
    jsontool format "$file" --ansi
    [ "$code" = "$expected" ] || wrong "expected the code of validate: $expected"
done
