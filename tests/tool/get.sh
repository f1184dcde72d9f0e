# jsontool get

jsontool get small.json /a; good 1
jsontool get small.json /list/2; good 20.0
jsontool get small.json /list; good '[10,20.0,[30]]'
jsontool get small.json /text; good $'line\none'
jsontool get small.json /text --json; good '"line\none"'
jsontool get small.json /x~/y/n; good null
jsontool get small.json /t~0; good 'Æ'
jsontool get "$harbour" /limits; good \
    '{"int32":-2147483648,"uint32":4294967295,"int64":-9223372036854775808,"uint64":18446744073709551615,"huge":1e300}'
jsontool get "$harbour" /limits/uint64; good 18446744073709551615
jsontool get "$harbour" /limits/huge; good 1e300
jsontool get "$harbour" /open; good true
cp small.json input; jsontool get - /list/3; good '[30]'
jsontool get small.json /nothing; fails 1 'small.json: there is nothing at /nothing'
jsontool get small.json /nothing/1; fails 1 'nothing at /nothing/1'
jsontool get missing.json /; fails 1 'missing.json: no such file'
jsontool get folder /; fails 1 'folder: is a folder'
printf '{"a" 1}' > input; jsontool get - /; fails 1 \
    '(standard input):6: Missing a colon after a name of object member. (line 1, column 6)'
jsontool get zero.json /; good '{"a\u0000b":1,"a\u0000c":2,"t":"x\u0000y"}'
jsontool get zero.json /t --json; good '"x\u0000y"'
jsontool get zero.json /t; holds out 'x\0y\n'
jsontool get lone.json /b; good 1
jsontool get lone.json /a; fails 1 '/a holds half of a surrogate pair'
jsontool get lone.json / --json; good '{"a":"\uDC00","b":1}'
printf '{"":{"":{"x":"y"}},"l":[[1,"z"]]}' > input; jsontool get - ///x; good y
printf '{"":{"":{"x":"y"}},"l":[[1,"z"]]}' > input; jsontool get - /l/1st/2; good z
