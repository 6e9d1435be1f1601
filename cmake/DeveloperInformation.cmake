# What belongs to whoever ships the module. Set these when configuring, for instance
#   cmake --preset release -DIMPORTOBJ_ORGANIZATION="Example Ltd"
set(IMPORTOBJ_ORGANIZATION "Example Organisation" CACHE STRING "Maker's organisation name")
set(IMPORTOBJ_ADDRESS_LINE_1 "1 Example Street" CACHE STRING "Postal address, first line")
set(IMPORTOBJ_ADDRESS_LINE_2 "Example Town" CACHE STRING "Postal address, second line")
set(IMPORTOBJ_COUNTRY "Example Country" CACHE STRING "Maker's country")
set(IMPORTOBJ_PHONE "000-000-0000" CACHE STRING "Maker's telephone number")
set(IMPORTOBJ_FAX "000-000-0001" CACHE STRING "Maker's fax number")
set(IMPORTOBJ_SUPPORT_EMAIL "support@example.org" CACHE STRING "Maker's support e-mail address")
set(IMPORTOBJ_WEBSITE "https://www.example.org" CACHE STRING "Maker's web site, no final slash")
set(IMPORTOBJ_UPDATE_HOST "https://updates.example.org" CACHE STRING "Site asked for updates")
set(IMPORTOBJ_SDK_VERSION 202601010 CACHE STRING "Host SDK version, yyyymmddn")
set(IMPORTOBJ_SDK_SERVICE_RELEASE 202601011 CACHE STRING "Host SDK service release, yyyymmddn")
