#pragma once

// The part of the Windows API that the product and its tests call, for the host build. Each
// function behaves as on Windows as far as the contract and the tests depend on it, and no further.

#include "WindowsFaults.h"
#include "WindowsFiles.h"
#include "WindowsHandles.h"
#include "WindowsMemory.h"
#include "WindowsModules.h"
#include "WindowsRandom.h"
#include "WindowsText.h"
#include "WindowsThreads.h"
#include "WindowsTypes.h"
