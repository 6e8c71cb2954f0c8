/**
 * @file
 * Types of the teletext and vertical-blanking data.
 */
#ifndef KELUTV_VBI_TYPES_H
#define KELUTV_VBI_TYPES_H

/**
 * Takes one data block. Runs on the thread that delivers the block and does its own locking.
 * @param type Kind of the data, as the service numbers it.
 * @param data The block's payload, at any alignment; valid until the callback returns.
 * @param length Length of the payload in bytes; may be 0.
 */
typedef void (*KELU_VBI_DATA_CALLBACK)(unsigned int type, void* data, unsigned int length);

#endif
