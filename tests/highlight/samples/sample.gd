# It's a "remark
extends Node2D
@export var size := 0x1F # the 'end
func _ready() -> void:
	var text = "it's # here \" x"
	var long = """two "lines
don't"""
	$"Path/To".show(); print('a "b"', &"name")
