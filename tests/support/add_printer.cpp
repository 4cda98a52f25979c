// add_printer PPD: adds the printer of the page pictures to the system that it runs on.
#include "support/PaperPrinter.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    if (argc != 2 || !testsupport::AddPaperPrinter(argv[1])) {
        std::fprintf(stderr, "The printer '%s' could not be added.\n", testsupport::kPaperPrinter);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
