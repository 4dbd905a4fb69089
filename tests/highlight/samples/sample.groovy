#!/usr/bin/env groovy
// Reads a folder and builds a report.
package sample.report

import groovy.transform.CompileStatic
import java.nio.file.*

@CompileStatic
class Report implements Serializable {
    final String title
    private List<Map<String, Object>> rows = []
    static int count = 0x1F

    def add(String name, long size = 1_000L) {
        rows << [name: name, size: size]
        this
    }

    boolean isEmpty() { !rows }
}

/* Sizes,
   largest first. */
def sizes = [3, 1, 2].sort { a, b -> b <=> a }
def report = new Report(title: "Sizes of \"all\"")
sizes.eachWithIndex { n, i -> report.add("file ${i + 1}", n * 1.5e3 as long) }

def text = """Title: $report.title
Rows: ${sizes?.size() ?: 0}"""
assert text ==~ /(?s)Title.*/
switch (sizes) {
    case [1, 2]: println 'short'; break
    case { it.size() > 2 }: println "long"; break
    default: throw new IllegalStateException()
}
def names = sizes*.toString()
try {
    new File("out.txt").withWriter { w -> w << text }
} catch (IOException | RuntimeException e) {
    println e.message
} finally {
    names = null
}
