// Tovarin: compares statistical models by their BIC.

#include "app/Startup.hpp"

#include <cstdio>

int main(int, char**) {
    // Without a windowing system Qt would abort with a long diagnostic; one
    // line says what is missing.
    if (!tovarin::hasDisplay()) {
        std::fputs("tovarin: no display found (neither DISPLAY nor WAYLAND_DISPLAY is set)\n",
                   stderr);
        return 1;
    }
    return tovarin::Main();
}
