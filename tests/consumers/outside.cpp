// A program outside of the library finds its public headers and no other.
#include "quarvel/quarvel.h"

#if __has_include("model/model_store.h") || __has_include("api/parts.h") || \
                                                          __has_include("text/version.h")
#error Headers of the inside are on the way of a program
#endif

int main() { return quarvel::Version().empty() ? 1 : 0; }
