# How far long work has come, and what is left of it when it is interrupted

# slowly: a document whose second half, which is large, takes its time to come.
slowly() {
    printf '[1,'
    sleep 3
    head -c 200000 /dev/zero | tr '\0' ' '
    printf '2]'
}

# Only on a console, and not among the results.
mkfifo slow
slowly > slow &
out=$(script -qec "$(printf '%q ' "$wine" "$tool" format) < slow 2>&1 > formatted" /dev/null < /dev/null |
    sed 's/\x1B\[?25[lh]//g; s/\x1B\[K\x1B\[1C/ /g')
call="jsontool format (from a slow pipe)" code=$? err=
contains "0 MiB read: (standard input)"
holds formatted '[1,2]\n'
slowly > slow &
cat slow > input
jsontool format; good '[1,2]'

# Whoever interrupts it keeps the file that was there, and no other.
printf '[1]' > kept.json
(
    until [ -n "$(find . -name 'kept.json.jsontool-*')" ]; do sleep 0.1; done
    printf '\003'
    sleep 1
) | timeout 60 script -qec "$(printf '%q ' "$wine" "$tool" format - -o kept.json)" /dev/null > /dev/null
call="jsontool format - -o kept.json (interrupted)"
holds kept.json '[1]'
[ -z "$(find . -name 'kept.json?*')" ] || wrong "expected nothing to be left behind"
