#!/usr/bin/env julia
# Walks and how to draw them.
module Walks

using Random, Statistics
import Base: show, +
export Walk, step!

const LIMIT = 0x10
abstract type Path end

"""
A walk of `n` steps.
"""
mutable struct Walk{T<:Real} <: Path
    x::Vector{T}
    name::Union{String,Nothing}
end

Walk(n::Int; name = nothing) = Walk(zeros(Float64, n), name)

#= A block comment
   of two lines. =#
function step!(w::Walk, rng::AbstractRNG = Random.default_rng())
    for i in eachindex(w.x)
        i == 1 && continue
        @inbounds w.x[i] = w.x[i-1] + 1.5e0 * randn(rng)
    end
    return w
end

Base.show(io::IO, w::Walk) = print(io, "Walk of $(length(w.x)): $(w.name)")

macro twice(ex)
    quote
        $(esc(ex)); $(esc(ex))
    end
end

function describe(w)
    m = mean(w.x)
    kind = m > 0 ? :up : :down
    try
        m ≥ LIMIT || throw(DomainError(m, "too \"small\""))
    catch err
        err isa DomainError || rethrow()
    finally
        @info "done" kind m
    end
    w.x .|> abs |> maximum
end

let v = [x^2 for x in 1:3 if isodd(x)], d = Dict(:a => 1, :b => missing)
    @twice println(r"^\d+$", map(x -> x / 2, v), d, true, 1//2, 3im)
end
end # module
