// A host in Go: builds an order, saves and reads it, keeps it in a package, and lets the package fetch one
// from the host's own memory through a delegate.
package main

import (
	"fmt"
	"os"
	"unsafe"
)

// variant is a JsonVariant: 16 bytes, the payload at byte 8.
type variant struct {
	tag     uint16
	_       [3]uint16
	payload int64
}

const (
	variantInt64 = 20
	utf8         = 2 // the encoding of output
)

func build(fileName string) {
	generator := newObject("CreateJsonGenerator", "IJsonGenerator")
	defer generator.call("Release")
	var root, lines, item uint32

	generator.must("CreateRootObject", uintptr(unsafe.Pointer(&root)))
	parent := uintptr(root)
	generator.must("AddObjectItemInt", parent, uintptr(text("no")), 7, uintptr(unsafe.Pointer(&item)))
	generator.must("AddObjectItemDouble", parent, uintptr(text("total")), float(12.5), uintptr(unsafe.Pointer(&item)))
	generator.must("AddObjectItemArray", parent, uintptr(text("lines")), uintptr(unsafe.Pointer(&lines)))
	generator.must("AddArrayItemString", uintptr(lines), uintptr(text("tea")), uintptr(unsafe.Pointer(&item)))
	generator.must("AddArrayItemString", uintptr(lines), uintptr(text("æble")), uintptr(unsafe.Pointer(&item)))
	// A record by value: the address of a copy, which is the callee's from then on.
	count := variant{tag: variantInt64, payload: 2}
	generator.must("AddItemVariant", parent, uintptr(text("count")), uintptr(unsafe.Pointer(&count)), uintptr(unsafe.Pointer(&item)))

	var path [1024]uint16
	generator.must("GetItemPath", uintptr(lines), uintptr(unsafe.Pointer(&path)))
	fmt.Println("path:", goText(&path[0]))

	var bytes *byte
	var size uint64
	generator.must("GetJsonBytes", uintptr(unsafe.Pointer(&bytes)), uintptr(unsafe.Pointer(&size)), utf8)
	fmt.Println("built:", string(unsafe.Slice(bytes, size)))
	generator.must("SaveToFile", uintptr(text(fileName)), utf8)
}

func read(fileName string) {
	parser := newObject("CreateJsonParser", "IJsonParser")
	defer parser.call("Release")

	parser.must("LoadJsonFile", uintptr(text(fileName)))
	var number int32
	parser.must("GetItemIntByPath", uintptr(text("/no")), uintptr(unsafe.Pointer(&number)))
	fmt.Println("number:", number)
	var line *uint16
	parser.must("GetItemStringByPath", uintptr(text("/lines/2")), uintptr(unsafe.Pointer(&line)))
	fmt.Println("second line:", goText(line))
	answer := map[bool]string{true: "yes", false: "no"}
	fmt.Println("discount:", answer[parser.ask("ExistsItemByPath", uintptr(text("/discount")))])

	mistake := []byte("[1, 2,]")
	if parser.call("LoadJsonBytes", uintptr(unsafe.Pointer(&mistake[0])), uintptr(len(mistake))) != plainFailure {
		panic("accepted")
	}
	var offset uint64
	var message *uint16
	parser.must("GetErrorOffset", uintptr(unsafe.Pointer(&offset)))
	parser.must("GetErrorMessage", uintptr(unsafe.Pointer(&message)))
	fmt.Printf("byte %d, mistake: %s\n", offset, goText(message))
}

func keep() {
	store := newObject("CreateJsonPackageInterface", "IJsonPackage")
	defer store.call("Release")
	const sent, received = 1, 2
	orders[sent] = &order{number: 8}
	orders[received] = &order{}

	store.must("SetDelegate", uintptr(unsafe.Pointer(&hostDelegate)))
	store.must("LoadString", uintptr(text(`{"Total":12.5}`)))
	store.must("SetValueFromDelegate4", uintptr(text("Order")), sent, 0)
	store.must("GetValueToDelegate", uintptr(text("order")), received, 0, 0, 0, 0, 0)
	fmt.Println("received:", orders[received].received)
	fmt.Println("export 5:", store.call("SetValueFromDelegate5", uintptr(text("Order")), sent, 0))
	var kept *uint16
	store.must("GetText", uintptr(unsafe.Pointer(&kept)))
	fmt.Println("kept:", goText(kept))
}

func main() {
	const fileName = "order.json"
	build(fileName)
	read(fileName)
	keep()
	if err := os.Remove(fileName); err != nil {
		panic(err)
	}
}
