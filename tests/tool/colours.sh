# Colours on the standard output

# On a Windows console: a terminal is one to Wine, whose moves of the cursor are taken away.
on_console() {
    call="$* (on a console)"
    out=$(script -qec "$(printf '%q ' "$wine" "$tool" "$@")" /dev/null < /dev/null | sed 's/\x1B\[?25[lh]//g' | tr -d '\r')
    code=$? err=
}

key=$'\e[34m' string=$'\e[32m' number=$'\e[36m' word=$'\e[35m' before=$'\e[31m' after=$'\e[32m' end=$'\e[0m'
printf '{"k":[1,true,null,"\\u00E9\\n"]}' > colours.json
coloured="{$key\"k\"$end:[${number}1$end,${word}true$end,${word}null$end,$string\"é\\n\"$end]}"

# Where they are asked for, in all that is written.
jsontool format colours.json --color always; good "$coloured"
jsontool get colours.json / --color ALWAYS; good "$coloured"
jsontool get colours.json /k --color always --json; good "[${number}1$end,${word}true$end,${word}null$end,$string\"é\\n\"$end]"
jsontool convert colours.json -o - --to ascii --color always; good "${coloured/é/\\u00E9}"
jsontool format colours.json --color always --indent 1
good "{
 $key\"k\"$end: [
  ${number}1$end,
  ${word}true$end,
  ${word}null$end,
  $string\"é\\n\"$end
 ]
}"
jsontool inspect colours.json /k --color always
good "$key/k$end  array, 4 elements
  $key[1]$end  number  ${number}1$end
  $key[2]$end  boolean  ${word}true$end
  $key[3]$end  null
  $key[4]$end  string  $string\"é\\n\"$end"
printf '{"k":2}' > colours-other.json
jsontool diff colours.json colours-other.json --color always
[ "$out" = "/k: $before[1,true,null,\"é\\n\"]$end -> ${after}2$end"$'\n' ] || wrong "expected the two values in colours"
# Characters of a string are no JSON.
jsontool get colours.json /k/4 --color always; good $'é\n'

# Never in a file or a pipe.
jsontool format colours.json --color always -o plain.json; silent
holds plain.json '{"k":[1,true,null,"é\\n"]}'
plain='{"k":[1,true,null,"é\n"]}'
jsontool format colours.json; good "$plain"
jsontool format colours.json --color auto; good "$plain"
jsontool format colours.json --color sometimes; fails 2 "sometimes"

# On a console, unless its user wants none.
on_console format colours.json; contains "$coloured"
on_console format colours.json --color never; contains "$plain"
export NO_COLOR=1
on_console format colours.json; contains "$plain"
on_console format colours.json --color always; contains "$coloured"
export NO_COLOR=
on_console format colours.json; contains "$coloured"
unset NO_COLOR
