// The ICCP object model: every class, table and reader of the model.
#pragma once

#include "model/DcBaseTypes.h"
#include "model/DcDA.h"
#include "model/DcDO.h"
#include "model/DcDataSet.h"
#include "model/DcICCPBase.h"
#include "model/DcLD.h"
#include "model/DcNextTransferSet.h"
#include "model/DcTemplates.h"
#include "model/DcTransSet.h"
#include "model/DcVCC.h"
