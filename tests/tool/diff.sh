# jsontool diff

# differs FILE FILE LINES
differs() {
    jsontool diff "$1" "$2" ${4:-}
    [ "$code" = 1 ] || { wrong "expected the code 1"; return; }
    [ "$out" = "$3"$'\n' ] || wrong "expected the output: $3"
}
printf '{"a":1,"b":[1,{"x/~":2}],"c":null,"d":"é","k":1,"k":2}' > old.json
printf '{"d":"e","b":[1,{"x/~":2.5},[]],"a":1.0,"e":{"f":[]},"k":1}' > new.json
differs old.json new.json '/b/2/x~/~0: 2 -> 2.5
/b/3: nothing -> []
/c: null -> nothing
/d: "é" -> "e"
/k: 2 -> nothing
/e: nothing -> {"f":[]}'
differs new.json old.json '/b/1/x~1~0: 2.5 -> 2
/b/2: [] -> nothing
/d: "e" -> "é"
/e: {"f":[]} -> nothing
/c: nothing -> null
/k: nothing -> 2' --pointer
printf "[]" > empty-array.json
differs old.json empty-array.json '/: {"a":1,"b":[1,{"x/~":2}],"c":null,"d":"é","k":1,"k":2} -> []'
jsontool diff old.json old.json; silent
# Only the value of a number counts, but all of it.
printf '[100,-0,1.50,0.001,1E300,123456789012345678901234567890,NaN,Infinity,0e5]' > spelled-one.json
printf '[1e+2,0,15e-1,1.0E-3,10e299,123456789012345678901234567890.0,NaN,Inf,-0.00]' > spelled-other.json
jsontool diff spelled-one.json spelled-other.json; silent
printf '[1234567890.12345678901,1,-1,Infinity,10]' > exact-one.json
printf '[1234567890.12345678902,"1",1,-Inf,100]' > exact-other.json
differs exact-one.json exact-other.json '/1: 1234567890.12345678901 -> 1234567890.12345678902
/2: 1 -> "1"
/3: -1 -> 1
/4: Infinity -> -Inf
/5: 10 -> 100'
cp old.json input; jsontool diff old.json -; silent
jsontool diff old.json missing.json; fails 1 'missing.json: no such file'
jsontool diff old.json; fails 2 "OTHER is required"
head -c 4000 /dev/zero | tr "\0" "[" > nested.json; head -c 4000 /dev/zero | tr "\0" "]" >> nested.json
jsontool diff nested.json nested.json; fails 1 "nested too deeply to be compared"
