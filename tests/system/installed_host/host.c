/* The smallest host: it finds the library and asks its version. */
#include <orcussch.h>
#include <stdio.h>

int main(void) { return puts(orcussch_version()) < 0; }
