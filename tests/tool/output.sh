# OUT: what becomes of the file.

mkdir occupied
printf 'kept' > occupied/file
jsontool format small.json -o occupied; fails 1 'occupied: is a folder'
jsontool set small.json /a 2 -o occupied; fails 1 'occupied: is a folder'
jsontool merge small.json small.json -o ./occupied/; fails 1 'occupied/: is a folder'
holds occupied/file kept

printf 'old' > replaced.json
jsontool format e.json -o replaced.json; silent; holds replaced.json '["é"]'
# It may be the one that is read, and stays as it was when that is bad.
printf '[1,\n]' > itself.json
jsontool format itself.json -o itself.json; fails 1 'itself.json:5: '
holds itself.json '[1,\n]'

# A byte-order mark for those who ask for it.
jsontool format e.json --bom -o marked.json; silent; holds marked.json '\xEF\xBB\xBF["é"]'
jsontool format e.json --bom; holds out '\xEF\xBB\xBF["é"]\n'
jsontool convert e.json --to ascii --bom -o marked.json; silent; holds marked.json '\xEF\xBB\xBF["\\u00E9"]'
jsontool convert e.json --to utf-16le --bom -o -; holds out '\xFF\xFE[\0"\0\xE9\0"\0]\0'
jsontool format marked.json; good '["é"]'
