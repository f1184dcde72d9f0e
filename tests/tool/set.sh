# jsontool set

printf '{"a":[1,[2],{"b":3}],"c/d":{"e~":4},"1":5}' > set.json
# rows FILE: reads PATH|VALUE|RESULT, or PATH|VALUE|!COMPLAINT.
rows() {
    while IFS='|' read -r path value expected; do
        jsontool set "$1" "$path" "$value"
        case $expected in
            !*) fails 1 "${expected#!}" ;;
            *) good "$expected" ;;
        esac
    done
}
rows set.json << 'END'
/1|true|{"a":[1,[2],{"b":3}],"c/d":{"e~":4},"1":true}
/new|null|{"a":[1,[2],{"b":3}],"c/d":{"e~":4},"1":5,"new":null}
/a|[]|{"a":[],"c/d":{"e~":4},"1":5}
/a/1|-7|{"a":[-7,[2],{"b":3}],"c/d":{"e~":4},"1":5}
/a/02|3.0|{"a":[1,3.0,{"b":3}],"c/d":{"e~":4},"1":5}
/a/3|{"x/y":[3.0],"z":2.0,"t":"é"}|{"a":[1,[2],{"x/y":[3.0],"z":2.0,"t":"é"}],"c/d":{"e~":4},"1":5}
/a/1|[{},2,"",[null]]|{"a":[[{},2,"",[null]],[2],{"b":3}],"c/d":{"e~":4},"1":5}
/a/4|{"end":[18446744073709551615]}|{"a":[1,[2],{"b":3},{"end":[18446744073709551615]}],"c/d":{"e~":4},"1":5}
/a/2/2|0.5|{"a":[1,[2,0.5],{"b":3}],"c/d":{"e~":4},"1":5}
/a/3/b|"text"|{"a":[1,[2],{"b":"text"}],"c/d":{"e~":4},"1":5}
/c~/d|"slash"|{"a":[1,[2],{"b":3}],"c/d":"slash","1":5}
/c~/d|[6.0]|{"a":[1,[2],{"b":3}],"c/d":[6.0],"1":5}
/c~/d/e~0|7.0|{"a":[1,[2],{"b":3}],"c/d":{"e~":7.0},"1":5}
/f~/g|8|{"a":[1,[2],{"b":3}],"c/d":{"e~":4},"1":5,"f/g":8}
/|[1]|[1]
/|1|!the root must be an object or an array
/a/5|1|!/a/5: the array has 3 elements
/a/0|1|!/a/0: the array has 3 elements
/a/b|1|!/a/b: the array has 3 elements
/x/y|1|!there is nothing at /x
/1/y|1|!/1 is neither an object nor an array
a|1|!a: an item path begins with a slash
/a|[1|![1: not JSON from character 3 on; --string treats it as a text
/a|"é"x|!"é"x: not JSON from character 4 on
/a|1,2|!1,2: not JSON from character 2 on
/1~|1|!1~: inside a key, a tilde is written ~0 and a slash ~/
/c~/d/~2|1|!~2: inside a key, a tilde is written ~0 and a slash ~/
/c~2d/x|1|!/c~2d/x: inside a key, a tilde is written ~0 and a slash ~/
/c~1d/e~0|6|{"a":[1,[2],{"b":3}],"c/d":{"e~":6},"1":5}
/1|"x\u0000y"|{"a":[1,[2],{"b":3}],"c/d":{"e~":4},"1":"x\u0000y"}
/1|{"k":1,"k":2}|{"a":[1,[2],{"b":3}],"c/d":{"e~":4},"1":{"k":1,"k":2}}
/a/1|{"k":1,"k":2}|{"a":[{"k":1,"k":2},[2],{"b":3}],"c/d":{"e~":4},"1":5}
/a/4|{"k":1,"k":2}|{"a":[1,[2],{"b":3},{"k":1,"k":2}],"c/d":{"e~":4},"1":5}
/1|"\uDC00"|{"a":[1,[2],{"b":3}],"c/d":{"e~":4},"1":"\uDC00"}
END
printf '[1,"]}\\"",3]' > array.json
rows array.json << 'END'
/2|[2.5]|[1,[2.5],3]
/1|{"d":2.0,"e":[]}|[{"d":2.0,"e":[]},"]}\"",3]
/3|{"a\u0000b":1,"a\u0000c":2}|[1,"]}\"",{"a\u0000b":1,"a\u0000c":2}]
/4|{}|[1,"]}\"",3,{}]
/x|1|!/x: the array has 3 elements
END
jsontool set zero.json /a 3; good '{"a\u0000b":1,"a\u0000c":2,"t":"x\u0000y","a":3}'
jsontool set lone.json /b 2; good '{"a":"\uDC00","b":2}'
# What cannot be done leaves a file alone.
jsontool set set.json /x/y 1 -o set.json; fails 1 'there is nothing at /x'
holds set.json '{"a":[1,[2],{"b":3}],"c/d":{"e~":4},"1":5}'
key=$(printf 'k%.0s' {1..1100})
printf '{"%s":1}' "$key" > input; jsontool set - "/$key" 2; good "{\"$key\":2}"
jsontool set set.json /a --string 'say "é"'
good '{"a":"say \"é\"","c/d":{"e~":4},"1":5}'
jsontool set set.json /a -o set.json -- -Infinity; silent
holds set.json '{"a":-Infinity,"c/d":{"e~":4},"1":5}'
printf '[]' > input; jsontool set - /1 '{}'; good '[{}]'
jsontool set missing.json /a 1; fails 1 'missing.json: no such file'
jsontool set small.json /a 1 -o no/such/folder.json; fails 1 'no/such/folder.json: its folder does not exist'
