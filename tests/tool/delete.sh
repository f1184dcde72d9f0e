# jsontool delete

printf '{"a":[1,[2],{"b":3}],"c/d":{"e~":4},"a":5}' > delete.json
# deletes PATH RESULT
deletes() { jsontool delete delete.json "$1"; good "$2"; }
deletes /a '{"c/d":{"e~":4},"a":5}'
deletes /a/1 '{"a":[[2],{"b":3}],"c/d":{"e~":4},"a":5}'
deletes /a/2 '{"a":[1,{"b":3}],"c/d":{"e~":4},"a":5}'
deletes /a/3/b '{"a":[1,[2],{}],"c/d":{"e~":4},"a":5}'
deletes /c~/d/e~0 '{"a":[1,[2],{"b":3}],"c/d":{},"a":5}'
jsontool delete delete.json /a/0 --pointer; good '{"a":[[2],{"b":3}],"c/d":{"e~":4},"a":5}'
jsontool delete delete.json /c~1d --pointer; good '{"a":[1,[2],{"b":3}],"a":5}'
jsontool delete delete.json /; fails 1 'the root cannot be deleted'
jsontool delete delete.json '' --pointer; fails 1 'the root cannot be deleted'
jsontool delete delete.json /x -o delete.json; fails 1 'delete.json: there is nothing at /x'
jsontool delete delete.json /a/4; fails 1 'nothing at /a/4'
jsontool delete delete.json /a/1/x; fails 1 'nothing at /a/1/x'
cp delete.json input; jsontool delete /a; good '{"c/d":{"e~":4},"a":5}'
jsontool delete delete.json /a -o delete.json --indent 1; silent
holds delete.json '{\n "c/d": {\n  "e~": 4\n },\n "a": 5\n}'
