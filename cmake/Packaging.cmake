# SPDX-License-Identifier: Apache-2.0
# Debian packages, one a component of cmake/Installation.cmake:
#   cpack --config build/release/CPackConfig.cmake      ventiq-workstation_*.deb and ventiq-workstation-dev_*.deb
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ventiq-workstation)
set(CPACK_PACKAGE_VENDOR "Ventiq")
set(CPACK_PACKAGE_CONTACT "Ventiq maintainers <ventiq@localhost.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL workstation development)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_WORKSTATION_PACKAGE_NAME ventiq-workstation)
set(CPACK_DEBIAN_WORKSTATION_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_WORKSTATION_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_WORKSTATION_PACKAGE_DEPENDS "fonts-dejavu-core")
set(CPACK_DEBIAN_WORKSTATION_PACKAGE_RECOMMENDS "fonts-wqy-microhei")
set(CPACK_COMPONENT_WORKSTATION_DESCRIPTION "workstation for options strategies
Shows what an options strategy is worth at expiry, as a chart and price by
price, loads what an account holds, and sends legs as one confirmed batch.

Views are packages that are loaded when the program starts; the payoff view
is one of them. A sample market with simulated quotes and a paper exchange
come along. English, traditional and simplified Chinese.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ventiq-workstation-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "ventiq-workstation (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "write views for the options workstation
Headers, the link to the framework's library, a CMake package and an example:
all that a view of one's own is built from. Plain C++20, no toolkit.")

include(CPack)
