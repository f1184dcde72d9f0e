# The libraries that the benchmark compares with. Without them there is no target BenchPeers.
add_system_headers(BenchPeers OPTIONAL
  HEADERS nlohmann/json.hpp boost/json/src.hpp
  PACKAGES nlohmann-json3-dev libboost1.81-dev)
