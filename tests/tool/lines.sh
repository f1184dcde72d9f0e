# One document a line.

printf '\xEF\xBB\xBF{"a":1}\n\n{"a":2.50,"b":"é"}\r\n  \n{"b":[1]}' > lines.json
jsontool get lines.json /a --lines; good $'1\n2.50'
cp lines.json input; jsontool get --lines /b; good $'é\n[1]'
jsontool get lines.json /c --lines; fails 1 'there is nothing at /c in any line'
jsontool format lines.json --lines; good $'{"a":1}\n{"a":2.50,"b":"é"}\n{"b":[1]}'
jsontool format lines.json --lines -o out.json; silent
holds out.json '{"a":1}\n{"a":2.50,"b":"é"}\n{"b":[1]}'
jsontool validate lines.json --lines; good '3 documents, 0 bad'
printf '[1]\n[2\n[NaN]\n5\n["\xE9"]' > lines-bad.json
jsontool validate lines-bad.json --lines
contains 'lines-bad.json, line 2:2: '
contains 'lines-bad.json, line 3:4: warning: NaN or an infinity (line 1, column 4)'
contains 'lines-bad.json, line 4:0: Invalid value. (the root must be an object or an array)'
contains 'lines-bad.json, line 5:3: warning: not UTF-8'
contains '5 documents, 2 bad, 2 warnings'
[ "$code" = 1 ] || wrong "expected the code 1"
jsontool format lines-bad.json --lines -o out.json; fails 1 'lines-bad.json, line 2:2: '
holds out.json '{"a":1}\n{"a":2.50,"b":"é"}\n{"b":[1]}'
jsontool get missing.json / --lines; fails 1 'missing.json: no such file'
jsontool validate missing.json --lines; fails 1 'missing.json: no such file'
