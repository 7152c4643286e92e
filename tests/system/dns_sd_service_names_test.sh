#!/bin/sh
# The platform's macOS way of finding services, through the same interface of Avahi, in the cases of
# wake_up_service_names_test.sh.
# SPDX-License-Identifier: Apache-2.0
exec sh "${0%/*}/wake_up_service_names_test.sh" tests/system/kelmctl_dns_sd
