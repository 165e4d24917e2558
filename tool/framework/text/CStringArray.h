#pragma once
// Growing array of texts. A bad index raises CInvalidArgException.

#include "tool/framework/text/CString.h"
#include "tool/framework/text/indexed_array.h"

class CStringArray : public framework::IndexedArray<CString> {};
