# shellcheck shell=bash
# The partitions of the board's flash chip. The console writes to the sixth, the voice daemon to the seventh; the
# others stand for what a device has before them, so that these have their numbers.
partitions='bootloader:128 environment:64 kernel:512 rootfs:256 webpages:128 settings:704 calls:256'
# In bytes.
flash_size=2097152

# A line for each: name, offset and size in bytes.
flash_layout() {
  local one offset=0
  for one in $partitions; do
    echo "${one%:*} $offset $((${one#*:} * 1024))"
    offset=$((offset + ${one#*:} * 1024))
  done
}

# What the chip's node in the device tree has of them.
device_tree_partitions() {
  local name offset size
  echo 'partitions { compatible = "fixed-partitions"; #address-cells = <1>; #size-cells = <1>;'
  while read -r name offset size; do
    printf 'partition@%x { label = "%s"; reg = <%d %d>; };\n' "$offset" "$name" "$offset" "$size"
  done < <(flash_layout)
  echo '};'
}
