#pragma once

/// @file
/// What is visible of the libraries.

/// Marks what the module and the platform library offer; everything else in them stays hidden.
#define DEVICESPECIFIC_API __attribute__((visibility("default")))
