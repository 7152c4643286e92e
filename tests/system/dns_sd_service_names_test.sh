#!/bin/sh
# wake_up_service_names_test.sh with the code that finds services on macOS. Avahi offers the same
# interface (dns_sd.h).
# SPDX-License-Identifier: Apache-2.0
exec sh "${0%/*}/wake_up_service_names_test.sh" tests/system/kelmctl_dns_sd
