// SPDX-License-Identifier: MIT
#pragma once

// The logon's own module: the password digest (public, in <zolt/Password.h>).

#include <zolt/Password.h>
