#pragma once
// Growing array of unsigned numbers. A bad index raises CInvalidArgException.

#include "tool/framework/text/indexed_array.h"
#include "tool/framework/types.h"

class CUIntArray : public framework::IndexedArray<UINT> {};
