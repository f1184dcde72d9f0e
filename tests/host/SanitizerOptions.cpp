// What the sanitizers do at run time, unless the environment says otherwise.

extern "C" {

const char* __asan_default_options();
const char* __asan_default_options() {
    // The fault guard sees faults first; allocations that are too large return null, as malloc
    // does; and the address of a local variable must show how deep the stack is.
    return "allow_user_segv_handler=1:allocator_may_return_null=1:detect_stack_use_after_return=0:"
           "detect_leaks=1:strict_string_checks=1:check_initialization_order=1:"
           // Memory that is freed and taken again ten thousand times is not to be kept for long.
           "quarantine_size_mb=64:malloc_context_size=12";
}

const char* __ubsan_default_options();
const char* __ubsan_default_options() { return "print_stacktrace=1"; }

const char* __tsan_default_options();
const char* __tsan_default_options() { return "allow_user_segv_handler=1:halt_on_error=1"; }
}
