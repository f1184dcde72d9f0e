// The interfaces of Json_Dll for Go, by name: which slot an operation has is looked up in the description
// that comes with the library.
package main

import (
	_ "embed"
	"encoding/json"
	"fmt"
	"math"
	"syscall"
	"unicode/utf16"
	"unsafe"
)

//go:embed Json_Dll.abi.json
var description []byte

// Results that this host looks at.
const (
	success      = 1
	plainFailure = 0
	wrongKind    = -3
)

// slots has the slot of each operation of each interface.
var slots = func() map[string]map[string]uintptr {
	var read struct {
		Interfaces []struct {
			Name       string
			Operations []struct {
				Name string
				Slot uintptr
			}
		}
	}
	if err := json.Unmarshal(description, &read); err != nil {
		panic(err)
	}
	all := map[string]map[string]uintptr{}
	for _, i := range read.Interfaces {
		all[i.Name] = map[string]uintptr{}
		for _, operation := range i.Operations {
			all[i.Name][operation.Name] = operation.Slot
		}
	}
	return all
}()

// at is the pointer at an address outside Go's memory.
func at(address uintptr) unsafe.Pointer {
	return *(*unsafe.Pointer)(unsafe.Pointer(&address))
}

// object is one of the library's, with the slots of its interface.
type object struct {
	address uintptr
	slots   map[string]uintptr
}

var library = syscall.NewLazyDLL("Json_Dll.dll")

// newObject calls a factory.
func newObject(factory, ofInterface string) object {
	address, _, _ := library.NewProc(factory).Call()
	if address == 0 {
		panic("no memory")
	}
	return object{address, slots[ofInterface]}
}

//! [call]

// raw calls an operation and returns what is in the register of results. The operation is the entry of its
// slot in the table that the object begins with; its first argument is the object.
//
// An argument is an integer, a text, a float64 or a pointer to Go's memory; a record that the operation takes
// by value is passed as the address of a copy.
//
//go:uintptrescapes
func (o object) raw(operation string, arguments ...uintptr) uintptr {
	slot, known := o.slots[operation]
	if !known {
		panic("no operation " + operation)
	}
	table := *(*uintptr)(at(o.address))
	function := *(*uintptr)(at(table + 8*slot))
	result, _, _ := syscall.SyscallN(function, append([]uintptr{o.address}, arguments...)...)
	return result
}

//! [call]

// call calls an operation that returns int: the lower half of the register.
//
//go:uintptrescapes
func (o object) call(operation string, arguments ...uintptr) int32 {
	return int32(o.raw(operation, arguments...))
}

// ask calls an operation that returns bool: the lowest byte of the register.
//
//go:uintptrescapes
func (o object) ask(operation string, arguments ...uintptr) bool {
	return byte(o.raw(operation, arguments...)) != 0
}

// must ends the program unless an operation succeeds.
//
//go:uintptrescapes
func (o object) must(operation string, arguments ...uintptr) {
	if result := o.call(operation, arguments...); result != success {
		panic(fmt.Sprintf("%s: %d", operation, result))
	}
}

// text is a text for an operation, which copies what it keeps.
func text(s string) unsafe.Pointer {
	units, err := syscall.UTF16PtrFromString(s)
	if err != nil {
		panic(err)
	}
	return unsafe.Pointer(units)
}

// float is a double as an argument: Go passes the bits in the register for integers and in that for floats.
func float(value float64) uintptr { return uintptr(math.Float64bits(value)) }

// goText is a copy of a text that the library, or a caller of the delegate, owns.
func goText(units *uint16) string {
	if units == nil {
		return ""
	}
	length := 0
	for *(*uint16)(unsafe.Add(unsafe.Pointer(units), 2*length)) != 0 {
		length++
	}
	return string(utf16.Decode(unsafe.Slice(units, length)))
}
