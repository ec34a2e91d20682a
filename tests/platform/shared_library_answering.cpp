// What the library that asks needs.

extern "C" [[gnu::visibility("default")]] const char* orbisgridWhoAnswers();

extern "C" const char* orbisgridWhoAnswers() {
    return "library";
}
