# The program itself.

jsontool --version
[[ $code$out =~ ^0jsontool\ [0-9.]+,\ Json_Dll\ [0-9.]+.?$ ]] || wrong "expected two versions"
# The version, as the system shows it.
tr -d '\0' < "$tool" > flat
grep -aq 'OriginalFilenamejsontool.exe' flat || wrong 'expected a version resource'
jsontool --help
for command in inspect get keys length type validate format convert set delete merge diff; do
    contains "  $command "
done
for command in inspect get keys length type validate format convert set delete merge diff; do
    jsontool "$command" --help
    contains "Usage: jsontool $command"
    [ "$code" = 0 ] || wrong "expected to end well"
    case $command in
        inspect | get | keys | length | type | set | delete) contains 'Item paths:'; contains '--pointer' ;;
        *) [[ $out != *'Item paths:'* ]] || wrong "expected nothing about item paths" ;;
    esac
done
jsontool merge --help; contains 'Usage: jsontool merge FILE FILE... [OPTIONS]'
jsontool set --help; contains 'Usage: jsontool set [FILE] PATH VALUE [OPTIONS]'
jsontool; fails 2 'a command is required'
jsontool frob small.json; fails 2 'frob: no such command'
jsontool get; fails 2 'PATH is required'
jsontool set /a; fails 2 'VALUE is required'
jsontool get small.json / extra; fails 2 'extra'
mkdir alone
cp "$tool" alone/tool.exe
"$wine" alone/tool.exe validate small.json > out 2> err < /dev/null
code=$? call='jsontool without its library' out=$(< out) err=$(< err)
fails 2 'Json_Dll.dll was not found'
