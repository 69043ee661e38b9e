#pragma once

// Marks what the platform library offers to the module and to hosts; everything else in it stays hidden.
#define PLATFORM_API __attribute__((visibility("default")))
