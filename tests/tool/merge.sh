# jsontool merge

printf '{"":0,"a":1,"b":{"x":1},"c":null}' > one.json
printf '{"b":{"y":2.0},"A":"é","big":18446744073709551615,"a/b":[null]}' > two.json
jsontool merge one.json two.json
good '{"":0,"a":1,"b":{"y":2.0},"c":null,"A":"é","big":18446744073709551615,"a/b":[null]}'
jsontool merge one.json two.json one.json --ignore-case
good '{"":0,"a":1,"b":{"x":1},"c":null,"big":18446744073709551615,"a/b":[null]}'
cp two.json input; jsontool merge one.json - -o out.json; silent
holds out.json '{"":0,"a":1,"b":{"y":2.0},"c":null,"A":"é","big":18446744073709551615,"a/b":[null]}'
jsontool merge one.json folder/good.json; fails 1 'good.json: the root must be an object'
printf '{"n":[NaN],"n":-Infinity,"b":1}' > input; jsontool merge one.json -
good '{"":0,"a":1,"b":1,"c":null,"n":-Infinity}'
printf '{"a\\u0000C":3,"T":"\\u001F\\n"}' > input; jsontool merge zero.json -
good '{"a\u0000b":1,"a\u0000c":2,"t":"x\u0000y","a\u0000C":3,"T":"\u001F\n"}'
printf '{"a\\u0000C":3,"T":"\\u001F\\n"}' > input; jsontool merge zero.json - --ignore-case
good '{"a\u0000b":1,"a\u0000c":3,"t":"\u001F\n"}'
printf '{}' > input; jsontool merge - lone.json; good '{"a":"\uDC00","b":1}'
jsontool merge one.json folder/deeper/bad.json; fails 1 'bad.json:19: Invalid value.'
jsontool merge one.json; fails 2 'FILE'
