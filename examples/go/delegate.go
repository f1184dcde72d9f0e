package main

import (
	"fmt"
	"syscall"
	"unsafe"
)

// order is an object of the host. The package passes its number around as an opaque pointer, because Go's own
// pointers must not be kept elsewhere.
type order struct {
	number   int
	received string
	exported *uint16
}

var orders = map[uintptr]*order{}

// delegate is an object as the library sees one: its first field points to the table of its operations. What
// the library points to stays alive in a variable of the package.
type delegate struct{ operations *[7]uintptr }

var hostDelegate = delegate{&[7]uintptr{
	// Every argument of a callback has the size of a register; above a narrow one there may be anything.
	syscall.NewCallback(func(self, object, a, b, c, d, e, f, text uintptr) uintptr { return refuse() }),
	syscall.NewCallback(func(self, object, a, b, c, d, e, text uintptr) uintptr { return refuse() }),
	syscall.NewCallback(func(self, object, a, b, c, text uintptr) uintptr { return refuse() }),
	syscall.NewCallback(func(self, object, a, b, text uintptr) uintptr { return refuse() }),
	syscall.NewCallback(exportOrder),
	syscall.NewCallback(func(self, object, a, text uintptr) uintptr { return refuse() }),
	syscall.NewCallback(importOrder),
}}

// refuse is the result for what this host does not offer; the package passes it on.
func refuse() uintptr {
	result := int32(wrongKind)
	return uintptr(uint32(result))
}

// exportOrder makes JSON from an order. The text lives in the order, as long as the package needs it.
func exportOrder(self, object, a, text uintptr) uintptr {
	from := orders[object]
	units, err := syscall.UTF16PtrFromString(fmt.Sprintf(`{"no":%d}`, from.number))
	if err != nil {
		return refuse()
	}
	from.exported = units
	*(*uintptr)(at(text)) = uintptr(unsafe.Pointer(units))
	return success
}

// importOrder takes JSON into an order.
func importOrder(self, object, text, a, b, c, d, e uintptr) uintptr {
	orders[object].received = goText((*uint16)(at(text)))
	return success
}
