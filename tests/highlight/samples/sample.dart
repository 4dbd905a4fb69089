// A list of tasks with a small widget.
import 'dart:async';
import 'package:flutter/material.dart' as ui show Widget, Text;

part 'sample.g.dart';

/// What can be done with a task.
enum Status { open, done }

sealed class Shape {}
final class Circle extends Shape {
  const Circle(this.radius);
  final double radius;
}

mixin Named on Object {
  late final String name;
}

@immutable
class Task with Named implements Comparable<Task> {
  Task(String name, {required this.due, this.status = Status.open}) {
    this.name = name;
  }
  final DateTime? due;
  Status status;

  factory Task.fromMap(Map<String, dynamic> m) => Task(m["name"] as String, due: null);

  @override
  int compareTo(Task other) => name.compareTo(other.name);
}

/* Counts down,
   once a second. */
Stream<int> countdown(int from) async* {
  for (var i = from; i >= 0; i--) {
    await Future.delayed(const Duration(seconds: 1));
    yield i;
  }
}

void main() async {
  final tasks = <Task>[...?null, Task("write \"it\"", due: null)];
  final sum = tasks.fold<num>(0x1F, (a, t) => a + t.name.length * 1.5e3);
  try {
    print("${tasks.length} tasks, $sum");
    tasks.first.due?.isAfter(DateTime.now()) ?? false;
  } on StateError catch (e) {
    rethrow;
  } finally {
    assert(tasks.isNotEmpty);
  }
}
