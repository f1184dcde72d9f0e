# jsontool keys, length and type

jsontool keys small.json; good $'a\nlist\nx/y\nt~\ntext'
jsontool keys small.json /x~/y; good n
jsontool keys small.json /x~1y --pointer --json; good '"n"'
jsontool keys small.json /list; fails 1 '/list is of the kind array: only objects have keys'
jsontool keys small.json /none; fails 1 'small.json: there is nothing at /none'
jsontool keys zero.json --json; good $'"a\\u0000b"\n"a\\u0000c"\n"t"'
printf '{"\\uDC00":{"inner":1},"b":[{"c":2}]}' > input; jsontool keys; fails 1 'a key holds half of a surrogate pair'
printf '{"\\uDC00":{"inner":1},"b":[{"c":2}]}' > input; jsontool keys --json; good $'"\\uDC00"\n"b"'
jsontool length small.json; good 5
jsontool length small.json /list; good 3
jsontool length small.json /text; good 8
printf '["é🇩🇰",{},[[1,2],3]]' > length.json
jsontool length length.json /1; good 3
jsontool length length.json /2; good 0
jsontool length length.json /3; good 2
jsontool length small.json /a; fails 1 '/a is of the kind number, which has no length'
jsontool type small.json; good object
jsontool type small.json /list; good array
jsontool type small.json /a; good number
jsontool type small.json /text; good string
jsontool type small.json /x~/y/n; good null
jsontool type "$harbour" /open; good boolean
cp small.json input; jsontool type - /list/2; good number
printf '{"a":1,' > input; jsontool type - /a; fails 1 '(standard input):7: '
