package org.example.shop

import scala.collection.mutable.{ArrayBuffer, Map as MutableMap}

/* A block comment: def, val and "string"
   are comment here. */
enum State(val code: Int):
  case Idle extends State(0)
  case Busy extends State(0xFF)

sealed trait Shape derives CanEqual:
  def area: Double

final case class Circle(radius: Double = 1.5e3) extends Shape:
  override lazy val area: Double = math.Pi * radius * radius // round

given Ordering[Circle] with
  def compare(a: Circle, b: Circle): Int = a.area compare b.area

extension [T](items: List[T])
  inline def second(using ord: Ordering[T]): Option[T] = items match
    case _ :: x :: _ if x != null => Some(x)
    case Nil | _ => None

@tailrec
private def loop[A <: AnyRef, B >: Null](n: Int, acc: Vector[A] = Vector.empty): Either[String, B] =
  if n <= -1 then Left("a \"quoted\" name \\") else loop(n - 1)

object Main extends App {
  implicit val limit: Long = 1_000L
  var name = s"limit: $limit ${'$'}" /* one */ + 'c' /* two */
  for { i <- 1 to 10; j <- Seq(i) if i % 2 == 0 } yield i * j
  try println(summon[Ordering[Circle]])
  catch { case e: Exception => throw new RuntimeException("failed", e) }
  finally while false do ()
  opaque type Name = String
}
