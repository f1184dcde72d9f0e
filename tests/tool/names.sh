# Names of files.

mkdir 'Ærø 港'
cp small.json 'Ærø 港/🇩🇰.json'
jsontool get 'Ærø 港/🇩🇰.json' /a; good 1
jsontool format 'Ærø 港/🇩🇰.json' -o 'Ærø 港/ʻ.json'; silent
jsontool validate 'Ærø 港'; good '2 files, 0 bad'
printf '[,]' > 'Ærø 港/ʻ.json'
jsontool validate 'Ærø 港'; contains 'Ærø 港\ʻ.json:2: Invalid value.'
jsontool get 'Ærø 港/ʻ.json' /; fails 1 'Ærø 港/ʻ.json:2: Invalid value.'
long=$(printf 'x%.0s' {1..150})
mkdir -p "$long/$long"
cp small.json "$long/$long/$long.json"
jsontool get "$long/$long/$long.json" /a; good 1
jsontool format "$long/$long/$long.json" -o "$long/$long/y.json"; silent
jsontool validate "$long"; good '2 files, 0 bad'
mkdir '[x]'
cp small.json '[x]'
jsontool validate './[x]'; good '1 file, 0 bad'
