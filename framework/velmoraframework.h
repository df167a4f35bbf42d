#pragma once

// Every public header of the Velmora framework.

#include "velmoraframework_global.h"

#include "core/actionhandler.h"
#include "core/augmentableregistrar.h"
#include "core/dataregistrar.h"
#include "core/deadlockfreelock.h"
#include "core/defaultaggregatable.h"
#include "core/defaultfileaugmentable.h"
#include "core/defaultgenericaugmentable.h"
#include "core/iaggregatable.h"
#include "core/iaugmentablefile.h"
#include "core/iaugmentablegeneric.h"
#include "core/iavailable.h"
#include "core/ibase.h"
#include "core/identifiers.h"
#include "core/ideadlockfreelock.h"
#include "core/ihandler.h"
#include "core/orderedif.h"
#include "core/serviceregistrar.h"
#include "core/sharedvariantregion.h"
#include "core/writeholderlock.h"
