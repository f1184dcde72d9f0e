# jsontool inspect

jsontool inspect small.json
good '/  object, 5 members
  a  number  1
  list  array, 3 elements
    [1]  number  10
    [2]  number  20.0
    [3]  array, 1 element
      [1]  number  30
  x/y  object, 1 member
    n  null
  t~  string  "Æ"
  text  string  "line\none"'
jsontool inspect small.json /list --depth 1 --width 3
good '/list  array, 3 elements
  [1]  number  10
  [2]  number  20....
  [3]  array, 1 element'
jsontool inspect zero.json
good '/  object, 3 members
  a\u0000b  number  1
  a\u0000c  number  2
  t  string  "x\u0000y"'
printf '{"a\\u0085b":"\\u007F\\u2028\\u2029\\u202A\\u202E\\u2066\\u2069|\\u00A0\\u2030"}' > input
jsontool inspect -
good $'/  object, 1 member\n  a b  string  "       |\u00A0\u2030"'
jsontool inspect small.json /nothing; fails 1 'nothing at /nothing'
jsontool inspect small.json --depth many; fails 2 'depth'
