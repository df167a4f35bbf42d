#pragma once

// Every public header of the ribbon, dock and address-bar library.
#include "addressbar.h"
#include "dockcontainer.h"
#include "dockcontentwidget.h"
#include "dockpanelwidget.h"
#include "ribbonbar.h"
#include "ribboncorner.h"
#include "ribbongallery.h"
#include "ribbongroup.h"
#include "ribbonpage.h"
#include "ribbonsubgroup.h"
#include "ribdock_global.h"
#include "ribdockagent.h"
