# CLI11, which parses command lines.
add_system_headers(Cli11 HEADERS CLI/CLI.hpp PACKAGES libcli11-dev)
