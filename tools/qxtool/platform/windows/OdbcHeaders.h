// The interface of ODBC, with what it needs.
#pragma once

#include <windows.h>
// After windows.h.
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>
