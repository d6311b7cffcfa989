/* The mark of an exported declaration. */
#ifndef OCLACP_EXPORT_H
#define OCLACP_EXPORT_H

#define OCLACP_EXPORT __attribute__((visibility("default")))

#endif
