#include "WindowsRandom.h"

#include <sys/random.h>

int rand_s(unsigned* number) {
    return getrandom(number, sizeof *number, 0) == sizeof *number ? 0 : 1;
}
