#include <vtlpictel/figure/InterfacePointer.h>
