// "Check for updates" of the about box: reads the version number on the maker's site, compares
// it with the running version and offers the setup package when the site's is newer.
#pragma once

#include "upload/service_hosts.h"
#include "upload/upload_view.h"

namespace velmora::upload {

enum class UpdateOutcome { kFailed, kCurrent, kNewVersion };

// The check for a program of version `major`.`minor`; the outcome is also what the user saw.
UpdateOutcome CheckUpdates(UploadView& view, int major, int minor, const ServiceHosts& hosts = DefaultServiceHosts());

// The check for the version this program was built as.
UpdateOutcome CheckUpdates(UploadView& view, const ServiceHosts& hosts = DefaultServiceHosts());

}  // namespace velmora::upload
