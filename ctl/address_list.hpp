// A list of addresses of libcups that is freed with its owner.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/http.h>

#include <memory>

namespace kelm::ctl {

struct AddressListDeleter {
  void operator()(http_addrlist_t* list) const { httpAddrFreeList(list); }
};
using AddressList = std::unique_ptr<http_addrlist_t, AddressListDeleter>;

}  // namespace kelm::ctl
