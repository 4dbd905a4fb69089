@file:JvmName("Shop")
package org.example.shop

import kotlin.math.max as largest

/* A block comment: fun, val and "string"
   are comment here. */
sealed interface Shape { val area: Double }

data class Circle(val radius: Double = 1.5e3) : Shape {
    override val area get() = Math.PI * radius * radius // round
}

enum class State(val code: Int) { Idle(0), Busy(0xFF); companion object { const val LIMIT = 1_000L } }

@Suppress("UNCHECKED_CAST")
abstract class Basket<in T : Comparable<T>>(private val name: String = "a \"quoted\" name \\") where T : Any {
    lateinit var owner: Basket<*>
    var count: Int by lazy { -1 }
        private set

    suspend inline fun <reified R> find(crossinline test: (T) -> Boolean): R? {
        val items = listOf(1, 2, 3).filter { it % 2 != 0 }
        outer@ for (i in 0 until 10 step 2) {
            when (val item = items[i]) {
                is Int, !in 1..3 -> continue@outer
                null -> return null
                else -> break@outer
            }
        }
        return try { items.first() as? R ?: throw IllegalStateException("none: $name ${items.size}") }
        finally { println(this@Basket::class) } /* one */ + 'c' /* two */
    }
    operator fun plus(other: T): Unit = TODO("later")
}

object Main { @JvmStatic fun main(vararg args: String) = print("""raw "text" here""") }
