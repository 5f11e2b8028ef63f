# Whose program a package says it is, who answers for it, and under what terms it is handed on: the one place. These values
# are stand-ins: nobody has chosen a licence yet, and `invalid` is no host, so no mail goes astray. Whoever hands packages on
# sets the four, here or on the command line (cmake -DTESSARO_CONTACT="Office <packages@office.example>" ...).
set(TESSARO_VENDOR "Tessaro 3D developers" CACHE STRING "Whose work a package holds")
set(TESSARO_CONTACT "Tessaro 3D developers <not-set@tessaro3d.invalid>" CACHE STRING "Who answers for a package: Name <address>")
set(TESSARO_LICENSE "LicenseRef-proprietary" CACHE STRING "The terms' SPDX name")
set(TESSARO_LICENSE_TEXT " No licence has been chosen yet, so all rights are reserved: whoever was given
 this package may use it, and needs the authors' leave to hand it on." CACHE STRING
  "The terms as the copyright file tells them, each line after a blank")
