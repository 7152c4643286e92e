// kelmfilter: started by the print system once per job (filter(7)).
#include "filter/pipeline.hpp"

int main(int argc, char* argv[]) { return kelm::filter::runFilter(argc, argv, stdout); }
