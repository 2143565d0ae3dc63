// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_GLOBAL_H
#define VMS_SDK_GLOBAL_H

#include <QtGlobal>

// Building the shared library exports; everyone else imports. VMS_CLIENT_SDK_STATIC is for
// programs that compile the library's sources into themselves.
#if defined(VMS_CLIENT_SDK_LIBRARY)
#define VMS_CLIENT_SDK_EXPORT Q_DECL_EXPORT
#elif defined(VMS_CLIENT_SDK_STATIC)
#define VMS_CLIENT_SDK_EXPORT
#else
#define VMS_CLIENT_SDK_EXPORT Q_DECL_IMPORT
#endif

#endif // VMS_SDK_GLOBAL_H
