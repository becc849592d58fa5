#include "PlaceDoubles.h"
