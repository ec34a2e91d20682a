// A library that leaves a name to others: to a library that it needs, and to the program.

extern "C" const char* orbisgridWhoAnswers();

extern "C" [[gnu::visibility("default")]] const char* orbisgridAsk() {
    return orbisgridWhoAnswers();
}
