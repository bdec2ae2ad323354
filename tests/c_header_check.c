/* Compiled as C99: the umbrella header must be plain C. */
#include "veks.h"

int veks_c_header_check(void) {
    Vek32fc c = {1.0f, 2.0f};
    return (int)c.re + (veksGetLibVersion() != 0);
}
