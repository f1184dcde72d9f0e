# jsontool format and convert

compact='{"a":1,"list":[10,20.0,[30]],"x/y":{"n":null},"t~":"Æ","text":"line\none"}'
jsontool format small.json; good "$compact"
cp small.json input; jsontool format -; good "$compact"
jsontool format small.json -o out.json; silent
holds out.json "${compact//\\/\\\\}"
printf '{"a":[1,{}]}' > input; jsontool format - --indent
good '{
    "a": [
        1,
        {}
    ]
}'
printf '{"a":[]}' > input; jsontool format - --indent -o out.json; silent
holds out.json '{\n    "a": []\n}'
printf '[NaN,-Inf,Infinity]' > nan.json
jsontool format nan.json; good '[NaN,-Inf,Infinity]'
jsontool format nan.json --indent 1 -o nan.json; silent
holds nan.json '[\n NaN,\n -Inf,\n Infinity\n]'
# Half of a surrogate pair stays the escape that it was.
printf '{"\\uDC00é":"a\\uDFFFb"}' > input; jsontool format -; good '{"\uDC00\u00E9":"a\uDFFFb"}'
jsontool format lone.json --indent 2; good $'{\n  "a": "\\uDC00",\n  "b": 1\n}'
jsontool convert lone.json -o - --to ascii; good '{"a":"\uDC00","b":1}'
jsontool convert lone.json -o out.json --to utf-16le; silent
jsontool get out.json /a --json; good '"\uDC00"'
jsontool format zero.json; good '{"a\u0000b":1,"a\u0000c":2,"t":"x\u0000y"}'
jsontool format small.json -o NUL; fails 1 'NUL: the file cannot be written'
jsontool format small.json -o no/such/folder.json; fails 1 'no/such/folder.json: its folder does not exist'
jsontool format missing.json; fails 1 'missing.json: no such file'

call='jsontool format small.json, to a full disk'
"$wine" "$tool" format small.json > /dev/full 2> err < /dev/null
code=$? out='' err=$(< err)
fails 1 'the standard output cannot be written'

jsontool convert e.json -o out.json --to ascii; silent; holds out.json '["\\u00E9"]'
jsontool convert e.json -o out.json --to utf-8; silent; holds out.json '["é"]'
jsontool convert e.json -o out.json --to utf-16be; silent; holds out.json '\xFE\xFF\0[\0"\0\xE9\0"\0]'
jsontool convert e.json -o out.json --to UTF-16LE; silent; holds out.json '\xFF\xFE[\0"\0\xE9\0"\0]\0'
jsontool convert out.json -o - --to ascii; good '["\u00E9"]'
jsontool convert out.json -o - --to utf-16le; holds out '[\0"\0\xE9\0"\0]\0'
jsontool convert ansi.json -o - --to utf-8 --ansi; good '["é"]'
jsontool convert e.json --to ascii; fails 2 '--output is required'
jsontool convert e.json -o out.json --to latin; fails 2 'latin'
jsontool convert e.json -o - --to 7; fails 2 '7'
