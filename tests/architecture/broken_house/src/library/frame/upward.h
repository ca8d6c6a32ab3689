#pragma once
#include "host/application.h"
