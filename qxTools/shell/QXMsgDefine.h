/// @file
/// A unit that takes its place among the units that start and stop, and holds nothing else.
#pragma once

namespace qxTools::QXMsgDefine {}
