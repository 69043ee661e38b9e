#pragma once

// Marks what the module exports; all else in it is hidden. conversion/Exports.map lists the same functions.
#define MODULE_API __attribute__((visibility("default")))
