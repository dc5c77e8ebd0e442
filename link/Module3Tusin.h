#pragma once

#include "app/waits.h"
#include "link/alarm.h"
#include "link/background.h"
#include "link/exchange.h"
#include "link/line_state.h"
#include "link/link_reset.h"
#include "link/port.h"
#include "link/receiver.h"
#include "link/supervision.h"
