#pragma once
// The ANSI code page's own characters; where there is no Windows, the conversions use the table
// too.

#include "platform/native/code_page_1252.h"
