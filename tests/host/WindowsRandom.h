#pragma once

// Random numbers of the system's, as the C runtime hands them out.

extern "C" {
/// 0, with a number that nobody foresees.
int rand_s(unsigned* number);
}
