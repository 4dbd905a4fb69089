// Package shop counts words.
package shop

import (
	"bufio"
	"fmt"
)

//go:generate stringer -type=State

/* A block comment: func, type and "string"
   are comment here. */
type State uint8

const (
	Idle State = iota
	Busy       = 0xFF
	Ratio      = -1.5e3
)

// Number is any number.
type Number interface {
	~int | ~float64
	comparable
}

type Counter[K comparable, V Number] struct {
	words map[K]V `json:"words"`
	mutex chan struct{}
}

func (c *Counter[K, V]) Add(key K, by V) (total V, err error) {
	defer func() {
		if r := recover(); r != nil {
			err = fmt.Errorf("lost: %v \"%s\" \\", r, "name")
		}
	}()
	c.mutex <- struct{}{}
	c.words[key] += by
	switch total = c.words[key]; {
	case total > 10:
		fallthrough
	default:
		go func() { <-c.mutex }() // later
	}
	return total, nil
}

func Max[T Number](items ...T) T {
	best := items[0] /* one */ + 0 /* two */
	for _, item := range items {
		best = max(best, item)
	}
	raw, quote := `no escape \ here`, '\''
	_, _, _ = raw, quote, append([]rune(nil), make([]rune, 0, 4)...)
	return best
}
