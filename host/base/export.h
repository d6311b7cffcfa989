// Marks what the host library offers beyond the platform contract: the C++ interface that the program and tests use.
#pragma once

#define OCLACP_HOST_API __attribute__((visibility("default")))
